#include "oficina/rascunho.h"

#include <utility>

namespace oficina {

void Rascunho::Guarda(desenho::Desenho desenho) {
  maquina_.Beside([guarda = desenho::Guarda(maquina_.Folders()), desenho = std::move(desenho),
                   falhou = falhou_]() mutable {
    try {
      guarda.GuardaRascunho(desenho);
    } catch (const stage::RuntimeError&) {
      *falhou = true;
    }
  });
}

void Rascunho::Esquece() {
  maquina_.Beside([guarda = desenho::Guarda(maquina_.Folders())]() mutable { guarda.EsqueceRascunho(); });
}

}  // namespace oficina
