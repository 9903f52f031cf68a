#include "oficina/desenho/recorte.h"

#include <utility>

namespace desenho {

std::string Recorte(const Desenho& desenho, const Escolha& escolha) {
  return Registros(Escolhidos(desenho, escolha));
}

std::optional<std::vector<Block>> DoRecorte(std::string_view texto) {
  Lido lido = LeDesenho(texto);
  if (!lido.faltas.empty() || lido.desenho.blocos.empty()) return std::nullopt;
  return std::move(lido.desenho.blocos);
}

}  // namespace desenho
