// Life icons and the indicator of the ball's kind.
#include "core/game.h"

namespace korvane {

void game::ExibeVidas(Integer nvida) {
  for (Integer k = 1; k <= 5; k = k + 1) {
    const bool tinha = life(k).Visible;
    const bool tem = nvida > k;
    life(k).Visible = tem;
    if (tinha && !tem) ApagaVida(k);
    if (tem && !tinha) AcendeVida(k);
  }
}

void game::ExibeBolaAtual() {
  for (Integer i = 0; i <= 2; i = i + 1) Imageball(i).Visible = i == Module1.BolaAtual;
}

}  // namespace korvane
