// The opening form, which brings the play form up behind it.
#pragma once

#include "core/programa.h"

namespace korvane {

class FrmAbertura : public stage::Form {
 public:
  explicit FrmAbertura(Programa& dono);

  void Form_Load() override;
  void Form_Activate() override;

 private:
  Programa& programa;
  stage::Image Image2;
};

}  // namespace korvane
