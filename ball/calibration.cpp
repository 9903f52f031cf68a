// The ball's step is measured once per run against the real rate of the timers: the ball of the first launch
// runs straight up, and the time that it takes rescales the step.
#include "core/game.h"
#include "screens/config.h"
#include "stage/files/text_file.h"

namespace korvane {

void game::timerDefine_Timer() {
  constexpr Double kCentesimosCertos = 25;  // hundredths of a second that the measured way should take
  try {
    Integer& Vkorv = Module1.Vkorv;
    const auto marca = Single(Height / 4);
    const Double subida = Double(TopoInicial) - ball.Top;
    if (subida >= marca) {
      timerDefine.Enabled = false;
      const auto agora = Single(Double(Palco.Timer()) * 100);
      const auto tempo = Single(Double(agora) - TempoInicial);
      const Integer nova = CInt(Single(Vkorv) * (tempo / Single(kCentesimosCertos)));
      VelY = -nova;
      Vkorv = nova;
      Palco.Machine().Beside(  // the ball flies on meanwhile
          [velocidade = std::to_string(Vkorv), arquivo = stage::HostPath(Module1.AppPath, "config.ini")] {
            GravaIni("SETUP", "Vkorv", velocidade, arquivo);
          });
    } else {
      VelX = 0;
      VelY = -Vkorv;
    }
  } catch (const RuntimeError&) {
    timerDefine.Enabled = false;
  }
}

}  // namespace korvane
