// The draws of bonuses, and the rules behind them that the falling and the parked bonus share.
#include "bonus/tabela.h"
#include "core/game.h"

namespace korvane {

/// A fresh draw; kNenhum for no bonus.
int game::CodigoSorteado(Sorteio sorteio) {
  constexpr int kMuitasVidas = 6;
  Palco.Randomize(Palco.Timer());
  const Integer numero = CInt(Int(Double(Palco.Rnd()) * MaiorSorteado(sorteio)) + 1);
  const int codigo = TabelaBonus::Sorteado(sorteio, numero);
  return codigo == kDaVida && Vidas >= kMuitasVidas ? kPassaFase : codigo;
}

/// What the state of play makes of a drawn bonus; kNenhum for none.
int game::AplicaRegras(int codigo, Sorteio sorteio) const {
  if (Serie > 0) codigo = TabelaBonus::De(codigo)->depois_da_a;
  if (codigo == kNenhum || codigo == BonusExcluido) return kNenhum;
  return TabelaBonus::De(codigo)->vem(*this, sorteio);
}

}  // namespace korvane
