// Draws of bonuses: the weights, and the rules behind them that the falling and the parked bonus share.
#pragma once

#include <array>

#include "core/Module1.h"

namespace korvane {

/// Values below `abaixo` give `codigo`, the first row that fits.
struct Faixa {
  Integer abaixo;
  Integer codigo;
};

/// A draw is a whole number from 1 to `ate`. What no row and no single value takes gives no bonus.
struct Sorteio {
  Integer ate;
  std::array<Faixa, 6> faixas;
  /// Single values that give bonus 7.
  std::array<Integer, 3> proxima;
  /// Single values that give bonus 8, or 7 to a player with many lives. A 0 is never drawn.
  std::array<Integer, 3> vida;
};

constexpr int kNenhum = 0;
constexpr int kTodosBarrados = 10;

}  // namespace korvane
