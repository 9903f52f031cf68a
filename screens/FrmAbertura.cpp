#include "screens/FrmAbertura.h"

#include "core/game.h"

namespace korvane {

FrmAbertura::FrmAbertura(Programa& dono)
    : Form(dono.Palco, "FrmAbertura", {0, 0, 4290, 750}),
      programa(dono),
      Image2(*this, {240, 120, 3690, 585}, dono.Palco.Pictures.Named("abertura"), false) {}

void FrmAbertura::Form_Load() {
  const stage::ScreenSize& Screen = OnStage().Screen;
  Top = Single(Screen.Height / 2.0 - Height / 2);
  Left = Single(Screen.Width / 2.0 - Width / 2);
}

void FrmAbertura::Form_Activate() {
  Refresh();
  OnStage().Sleep(std::chrono::seconds(1));
  programa.game.Load();
  Unload();
}

}  // namespace korvane
