// What the tests of bonuses share: the state that a draw looks at, and a hand on every yield.
#pragma once

#include <functional>

#include "tests/mesa.h"

namespace tests {

inline constexpr int kNone = 0;

/// The state of play that the rules of a draw look at. A hard block lets each code stay as drawn.
struct State {
  int serie = 0;
  int lives = 3;
  int barred = 0;
  int ball = 0;
  int size = 2;
  bool hard = true;
  bool magnet = false;

  void To(game& jogo) const {
    jogo.Serie = serie;
    jogo.Vidas = lives;
    jogo.BonusExcluido = barred;
    jogo.Module1.BolaAtual = ball;
    jogo.TamanhoUser = size;
    jogo.TemRigido = hard;
    jogo.Magnetico = magnet;
    jogo.BolaPresa = false;
    jogo.paused = false;
  }
};

inline std::ostream& operator<<(std::ostream& out, const State& s) {
  return out << "series " << s.serie << " lives " << s.lives << " barred " << s.barred << " ball " << s.ball
             << " size " << s.size << " hard " << s.hard << " magnet " << s.magnet;
}

/// Values of a draw, both ends included, and the code that they give.
struct Band {
  int from;
  int to;
  int code;
};

/// 0 where no band holds the value.
inline int CodeOf(std::span<const Band> bands, int n) {
  for (const Band& band : bands) {
    if (n >= band.from && n <= band.to) return band.code;
  }
  return kNone;
}

/// A drawn value, the state that it meets, and what comes of it.
struct Drawn {
  int n;
  State state;
  int code;
  bool sent = true;
};

/// What Rnd has to give for the value n of 1 to `of`.
inline stage::Single ToDraw(int n, int of) { return stage::Single((n - 0.5) / of); }

inline void Prepare(Mesa& mesa, std::vector<stage::Single> draws) {
  mesa.Palco().Draws.Prepared().assign(draws.begin(), draws.end());
}

/// A table on which only the hand that is laid on it moves anything.
class QuietMesa : public Mesa {
 public:
  using Mesa::Mesa;

  void Quiet() {
    for (stage::Timer* timer : AllTimers()) timer->Enabled = false;
  }

  /// Runs `procedure` and calls `at_yield` once at each place where it gives way, with the yield's number
  /// from 1 on.
  void Yielding(const std::function<void()>& procedure, const std::function<void(int)>& at_yield) {
    Quiet();
    int yield = 0;
    stage::Timer& timer = Jogo().Timer_Move;
    timer.Interval = 1;
    timer.Tick = [&] {
      platform->PassTo(stage::kBeat);
      at_yield(++yield);
    };
    timer.Enabled = true;
    platform->PassTo(stage::kBeat);
    procedure();
    timer.Enabled = false;
    timer.Tick = nullptr;
  }

 private:
  std::vector<stage::Timer*> AllTimers() {
    game& j = Jogo();
    return {&j.Timer_Move,  &j.Timer_Move2,     &j.TimerPisca, &j.TimerBonusParado,
            &j.timerDefine, &j.TimerDescebonus, &j.Timer2};
  }
};

/// What an event does that ends the level while a procedure gives way.
inline void GoToLevel2(game& jogo) {
  jogo.clearall();
  jogo.FaseAtual = 2;
  jogo.loadup(2);
}

}  // namespace tests
