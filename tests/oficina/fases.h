// The levels of the game, as drawings to try things on.
#pragma once

#include <string>
#include <vector>

#include "oficina/desenho/desenho.h"
#include "tools/files.h"

namespace tests {

inline constexpr int kFases = 40;

/// The text of a level file of the game, from 1 on.
inline std::string Fase(int numero) {
  return tools::ReadFile(std::string(KORVANE_SOURCE) + "/assets/levels/" + std::to_string(numero) + ".sav");
}

inline std::vector<desenho::Desenho> Fases() {
  std::vector<desenho::Desenho> fases;
  for (int numero = 1; numero <= kFases; ++numero) fases.push_back(desenho::LeDesenho(Fase(numero)).desenho);
  return fases;
}

/// A brick of the first type at a place.
inline desenho::Block Tijolo(int left, int top) { return {top, left, 250, 480, 1}; }

}  // namespace tests
