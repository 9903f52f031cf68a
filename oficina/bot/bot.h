// A player that is not a person: looks at the game each time the program waits and moves the pointer or
// presses keys.
#pragma once

#include <random>

#include "core/game.h"
#include "stage/machines/scripted/scripted_platform.h"

namespace bot {

class Bot {
 public:
  Bot(korvane::Programa& programa, stage::ScriptedPlatform& platform, std::uint32_t seed)
      : programa_(programa), platform_(platform), random_(seed) {}

  /// Now and then asks for help, pauses, or jumps to another level.
  bool wanders = true;
  /// Never collects the bonus that ends a level.
  bool stays_in_level = false;

  /// What a player does about what the screen shows, and one beat.
  void Act();

 private:
  using Double = stage::Double;

  bool Chance(Double probability) { return std::bernoulli_distribution(probability)(random_); }
  Double Between(Double least, Double most) {
    return std::uniform_real_distribution<Double>(least, most)(random_);
  }
  void Press(int code, int shift = 0);
  void Answer(const std::string& form);
  void Wander();
  void Play(korvane::game& jogo);
  void LookAtBonus(korvane::game& jogo);
  void MovePaddle(korvane::game& jogo, Double left);
  Double PaddleForBall(korvane::game& jogo, Double landing) const;

  korvane::Programa& programa_;
  stage::ScriptedPlatform& platform_;
  std::mt19937 random_;
  Double aim_ = 0;      // where the ball is to meet the paddle: -1 its left end, 1 its right end
  bool rising_ = true;  // the ball as last seen
  int falling_ = -1;    // the falling bonus as last seen
  bool wanted_ = false;
};

}  // namespace bot
