// The blocks of one type vanish and come back together.
#include "core/game.h"

namespace korvane {

void game::TimerPisca_Timer() {
  EstadoPisca = !EstadoPisca;
  const Long fase = FasesRetiradas;
  const Integer ultimo = ProximoBox - 1;
  for (Integer i = 1; i <= ultimo; i = i + 1) {
    Palco.DoEvents();
    if (fase != FasesRetiradas) return;
    if (Module1.TipoBox(i) == TipoPisca) {
      stage::Image& bloco = Box(i);
      const bool espera = TipoPisca == kRigido && !bloco.Visible && BolaSobre(bloco);
      if (!espera) bloco.Visible = EstadoPisca;
    }
    Palco.DoEvents();
    if (fase != FasesRetiradas) return;
  }
}

bool game::BolaSobre(const stage::Image& bloco) {
  return Single(bloco.Left - ball.Width) <= ball.Left && Single(bloco.Left + bloco.Width) >= ball.Left &&
         Single(bloco.Top - ball.Height) <= ball.Top && Single(bloco.Top + bloco.Height) >= ball.Top;
}

}  // namespace korvane
