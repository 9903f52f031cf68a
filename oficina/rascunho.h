// The drawing that nobody has saved yet, kept aside beside the program.
#pragma once

#include <atomic>
#include <memory>

#include "oficina/desenho/guarda.h"
#include "stage/machines/platform.h"

namespace oficina {

/// What is asked of it is done in its turn, while the hand goes on.
class Rascunho {
 public:
  explicit Rascunho(stage::Platform& maquina) : maquina_(maquina) {}

  void Guarda(desenho::Desenho desenho);
  void Esquece();
  /// A drawing could not be kept since this was last asked.
  bool Falhou() { return falhou_->exchange(false); }

 private:
  stage::Platform& maquina_;
  std::shared_ptr<std::atomic<bool>> falhou_ = std::make_shared<std::atomic<bool>>(false);
};

}  // namespace oficina
