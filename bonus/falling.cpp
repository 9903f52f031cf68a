// Bonuses that fall from the top of the screen and are caught by the paddle.
#include "bonus/tabela.h"
#include "core/game.h"

namespace korvane {

void game::Timer2_Timer() {
  if (BonusExcluido == kTodosBarrados || paused || BolaPresa) return;
  const int sorteado = CodigoSorteado(Sorteio::kCaindo);
  if (sorteado == kNenhum) return;
  const int codigo = AplicaRegras(sorteado, Sorteio::kCaindo);
  if (codigo == kNenhum) return;
  const bool barrado = codigo == BonusExcluido;
  if (barrado && sorteado == kAtravessaBlocos) return;
  BonusCaindo = codigo;
  if (!barrado) SoltaBonus();
}

void game::SoltaBonus() {
  Imgbonus.Picture = ImagePower(BonusCaindo).Picture;
  Imgbonus.Top = Single(-Imgbonus.Height);
  const bool mira = VelY > 0 && BonusCaindo == kTiraVida;
  const Double b = mira ? Int(Double(Palco.Rnd()) * 5) + 1 : 0;
  if (b == 1) {
    Imgbonus.Left = ball.Left;
  } else if (b == 2) {
    Imgbonus.Left = User.Left;
  } else {
    Imgbonus.Left = Single(Int(Palco.Rnd() * (Width - Imgbonus.Width)) + 1);
  }
  Imgbonus.Visible = true;
  TimerDescebonus.Enabled = true;
}

void game::TimerDescebonus_Timer() {
  constexpr Double kPasso = 100;  // form units a tick
  if (paused) return;
  Palco.DoEvents();
  Imgbonus.Top = Single(Imgbonus.Top + kPasso);
  Palco.DoEvents();
  Imgbonus.Refresh();
  Palco.DoEvents();
  Palco.DoEvents();
  TestaBonus();
  Palco.DoEvents();
  if (Imgbonus.Top > statusbar.Top) {
    BonusCaindo = -1;
    TimerDescebonus.Enabled = false;
    Imgbonus.Refresh();
    Imgbonus.Visible = false;
  }
}

void game::TestaBonus() {
  const bool pegou =
      Single(User.Height + User.Top) > Imgbonus.Top && Single(Imgbonus.Height + Imgbonus.Top) >= User.Top &&
      Single(User.Width + User.Left) >= Imgbonus.Left && Single(Imgbonus.Width + Imgbonus.Left) >= User.Left;
  if (!pegou) return;
  Imgbonus.Visible = false;
  Imgbonus.Refresh();
  EngoleBonus();
  AcendeUser(BonusCaindo);
  consedebonus(BonusCaindo);
  BonusCaindo = -1;
}

}  // namespace korvane
