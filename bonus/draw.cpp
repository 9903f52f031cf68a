#include "bonus/draw.h"

#include <algorithm>

#include "core/game.h"

namespace korvane {
namespace {

constexpr int kMuitasVidas = 6;

}  // namespace

/// A fresh draw; kNenhum for no bonus.
Integer game::CodigoSorteado(const Sorteio& sorteio) {
  Palco.Randomize(Palco.Timer());
  const Integer n = CInt(Int(Double(Palco.Rnd()) * sorteio.ate) + 1);
  const auto e_n = [&](const Integer& valor) { return valor == n; };
  for (const Faixa& faixa : sorteio.faixas) {
    if (n < faixa.abaixo) return faixa.codigo;
  }
  if (std::ranges::any_of(sorteio.proxima, e_n)) return 7;
  if (std::ranges::any_of(sorteio.vida, e_n)) return Vidas < kMuitasVidas ? 8 : 7;
  return kNenhum;
}

/// What the state of play makes of a drawn code; kNenhum for no bonus. `dois` is what it makes of a drawn 2,
/// in which the two draws differ.
Integer game::AplicaRegras(Integer codigo, Integer dois) const {
  if (Serie > 0 && codigo == 8) codigo = 3;
  if (Serie > 0 && (codigo == 4 || codigo == 6)) return kNenhum;
  if (codigo == BonusExcluido) return kNenhum;
  switch (codigo) {
    case 1:
      if (Module1.BolaAtual == 2) return kNenhum;
      if (Module1.BolaAtual == 1) return TemRigido ? 2 : kNenhum;
      return 1;
    case 2:
      return dois;
    case 4:
      return TamanhoUser == 3 ? kNenhum : 4;
    case 5:
      return TamanhoUser == 1 ? kNenhum : 5;
    case 6:
      return Magnetico ? kNenhum : 6;
    default:
      return codigo;
  }
}

}  // namespace korvane
