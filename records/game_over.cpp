// A game ends and the next one stands ready.
#include "core/game.h"
#include "records/FrmMostraRecords.h"
#include "screens/pointer.h"

namespace korvane {

void game::gameover() {
  JogouUma = true;
  BolaPresa = true;
  paused = true;
  MostraCursor(Palco);
  if (!Module1.Prova && !VerificaRecord()) {
    Palco.MsgBox("Você fez " + std::to_string(Module1.Pontos) + " pontos.");
    programa.FrmMostraRecords.Show();
  }
  EscondeCursor(Palco);
  paused = false;
  TiraPoderes();
  Module1.Pontos = 0;
  LabelPontos.Caption = std::to_string(Module1.Pontos);
  Vidas = 3;
  ExibeVidas(Vidas);
  clearall();
  FaseAtual = 1;
  Serie = 0;
  ProximoBox = 1;
  loadup(1);
  MudaTamanho(2);
}

}  // namespace korvane
