// The sounds of the game, each a recipe for the synthesizer.
#pragma once

#include <span>
#include <string_view>

#include "assets/sounds/wave.h"

namespace sons {

struct Effect {
  std::string_view file;
  double peak_db;  // decibels below full scale
  Wave (*recipe)();
};

/// Every sound of the game. They share one pentatonic scale, so any two may overlap without grating.
std::span<const Effect> Effects();

}  // namespace sons
