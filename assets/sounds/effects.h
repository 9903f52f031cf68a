// The sounds of the game, each a recipe for the synthesizer.
#pragma once

#include <span>
#include <string_view>

#include "assets/sounds/wave.h"

namespace sons {

struct Effect {
  std::string_view file;
  double loudness;  // as Loudness() measures it
  Wave (*recipe)();
};

/// Every sound of the game. One cuts off the other, most of them early, so each tells what it is in its first
/// 60 ms and keeps half of its energy there. They share one pentatonic scale, and all are heard on
/// loudspeakers that give nothing below 350 Hz.
std::span<const Effect> Effects();

}  // namespace sons
