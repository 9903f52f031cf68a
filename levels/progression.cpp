// How a level ends and the next one comes.
#include "core/game.h"

namespace korvane {

void game::clearall() {
  Palco.Effects().Clear();
  FasesRetiradas = FasesRetiradas + 1;
  for (Integer i = 1; i <= ProximoBox; i = i + 1) {
    ResumeNext([&] { Box.Unload(i); }, [&] { Module1.TipoBox(i) = 0; });
  }
  ProximoBox = 1;
  TemFechamento = false;
  RepoeBola();
}

void game::passafase() {
  if (!TemRigido || Module1.BolaAtual == 2) return;
  for (Integer i = 1; i < ProximoBox; i = i + 1) {
    const Integer tipo = Module1.TipoBox(i);
    if (tipo != 0 && tipo != kRigido) return;
  }
  ProximaFase();
}

void game::ProximaFase() {
  clearall();
  ResumeNext([&] { FaseAtual = FaseAtual + 1; });  // at its limit it stays
  loadup(FaseAtual);
}

}  // namespace korvane
