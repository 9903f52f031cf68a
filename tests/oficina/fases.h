// Levels and blocks to try things on.
#pragma once

#include <string>

#include "oficina/desenho/block.h"
#include "tools/files.h"

namespace tests {

inline constexpr int kFases = 40;

/// The text of a level file of the game, from 1 on.
inline std::string Fase(int numero) {
  return tools::ReadFile(std::string(KORVANE_SOURCE) + "/assets/levels/" + std::to_string(numero) + ".sav");
}

/// A brick of the first type at a place.
inline desenho::Block Tijolo(int left, int top) { return {top, left, 250, 480, 1}; }

}  // namespace tests
