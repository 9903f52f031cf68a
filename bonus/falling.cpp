// Bonuses that fall from the top of the screen and are caught by the paddle.
#include "bonus/draw.h"
#include "core/game.h"

namespace korvane {
namespace {

constexpr Sorteio kSorteio{
    400, {{{20, 1}, {30, 2}, {80, 3}, {100, 4}, {120, 5}, {130, 6}}}, {155, 165, 175}, {151, 161, 0}};

}  // namespace

void game::Timer2_Timer() {
  if (BonusExcluido == kTodosBarrados || paused || BolaPresa) return;
  const Integer sorteado = CodigoSorteado(kSorteio);
  if (sorteado == kNenhum) return;
  const int dois = Module1.BolaAtual == 2 ? kNenhum : TemRigido ? 2 : 1;
  const Integer codigo = AplicaRegras(sorteado, dois);
  if (codigo == kNenhum) return;
  const bool barrado = codigo == BonusExcluido;
  if (barrado && sorteado == 1) return;
  BonusCaindo = codigo;
  if (!barrado) SoltaBonus();
}

void game::SoltaBonus() {
  Imgbonus.Picture = ImagePower(BonusCaindo).Picture;
  Imgbonus.Top = Single(-Imgbonus.Height);
  const bool mira = VelY > 0 && BonusCaindo == 3;
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
  consedebonus(BonusCaindo);
  BonusCaindo = -1;
}

}  // namespace korvane
