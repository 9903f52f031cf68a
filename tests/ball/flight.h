// A ball put in flight at a place of the test's own.
#pragma once

#include "tests/mesa.h"

namespace tests {

using stage::Double;
using Sounds = std::vector<std::string>;

struct Flight {
  Double left = 0;
  Double top = 0;
  Double vx = 0;
  Double vy = 0;

  void Start(game& jogo) const {
    jogo.BolaPresa = false;
    jogo.ball.Left = Single(left);
    jogo.ball.Top = Single(top);
    jogo.VelX = vx;
    jogo.VelY = vy;
  }
};

inline Flight FlightOf(const game& jogo) { return {jogo.ball.Left, jogo.ball.Top, jogo.VelX, jogo.VelY}; }

/// One tick of the ball, and the sounds that it starts.
inline Sounds Tick(Mesa& mesa) {
  mesa.platform->TakeSounds();
  mesa.Jogo().MoveBola();
  return mesa.platform->TakeSounds();
}

}  // namespace tests
