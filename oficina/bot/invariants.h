// What must hold of the game whenever the program waits.
#pragma once

#include <string>

#include "core/game.h"

namespace bot {

class Invariants {
 public:
  /// What is broken; empty if nothing is.
  std::string Broken(korvane::game& jogo, const stage::Form* active);

 private:
  std::string BrokenLevel(korvane::game& jogo);

  stage::Long level_ = -1;
  stage::Double step_ = 0;
};

}  // namespace bot
