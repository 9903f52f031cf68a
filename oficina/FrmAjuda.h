// What the hand and the keys do in the workshop.
#pragma once

#include <deque>

#include "stage/stage.h"

namespace oficina {

/// Any key and any click close it.
class FrmAjuda : public stage::Form {
 public:
  explicit FrmAjuda(stage::Stage& palco);

  void Form_KeyDown(stage::Integer KeyCode, stage::Integer Shift) override;
  void Form_Click() override;

 private:
  void Escreve(stage::Double esquerda, stage::Double topo, const std::string& texto, stage::Long cor);

  std::deque<stage::Label> linhas_;
};

}  // namespace oficina
