// A game ends and the next one stands ready.
#include "core/game.h"
#include "records/FrmMostraRecords.h"
#include "screens/pointer.h"

namespace korvane {

void game::gameover() {
  BolaPresa = true;
  paused = true;
  MostraCursor(Palco);
  if (!VerificaRecord()) {
    Palco.MsgBox("Você fez " + std::to_string(Module1.Pontos) + " pontos.");
    programa.FrmMostraRecords.Show();
  }
  EscondeCursor(Palco);
  paused = false;
  Module1.BolaAtual = 0;
  BonusCaindo = -1;
  Magnetico = false;
  ball.Picture = Imageball(Module1.BolaAtual).Picture;
  Module1.Pontos = 0;
  LabelPontos.Caption = std::to_string(Module1.Pontos);
  Vidas = 3;
  ExibeVidas(Vidas);
  clearall();
  FaseAtual = 1;
  Serie = 0;
  ProximoBox = 1;
  loadup(1);
  TamanhoUser = 2;
  User.Width = Single(LarguraBase);
  Image1.Width = User.Width;
}

}  // namespace korvane
