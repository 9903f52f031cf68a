// A block of a level, in design units, and where it may stand.
#pragma once

#include "bonus/tabela.h"
#include "core/Module1.h"

namespace desenho {

inline constexpr int kHard = korvane::kRigido;
inline constexpr int kUnseen = korvane::kInvisivel;
inline constexpr int kPaleOlive = korvane::kRevelado;
inline constexpr int kLastType = korvane::kRevelado;
/// TipoBox has no use for index 0 and one more for the carrier of the parked bonus.
inline constexpr int kMostBlocks = decltype(korvane::Module1::TipoBox)::kCount - 2;

/// The ordinary brick and the black line between two of them, design units.
inline constexpr int kLarguraNormal = 480;
inline constexpr int kAlturaNormal = 250;
inline constexpr int kVao = 10;
inline constexpr int kWidestGap = 60;

inline constexpr int kLastBonus = korvane::TabelaBonus::kQuantos;
inline constexpr int kAllBonuses = korvane::kTodosBarrados;

/// The field that a level may fill, in design units of the 12000 by 9000 screen.
struct Field {
  static constexpr int kLeft = 0;
  static constexpr int kTop = 0;
  static constexpr int kRight = 12000;
  /// The top of the ball at rest on the paddle.
  static constexpr int kPaddle = 8274;
  /// How much lower than as drawn the last series lays the blocks.
  static constexpr int kLastShift = (3 * 9000 + 34) / 35;
  static constexpr int kBottom = kPaddle - kLastShift;
};

struct Block {
  int top = 0;
  int left = 0;
  int height = 0;
  int width = 0;
  int type = 0;

  int Bottom() const { return top + height; }
  int Right() const { return left + width; }

  bool operator==(const Block&) const = default;
};

}  // namespace desenho
