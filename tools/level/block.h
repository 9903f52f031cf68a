// A block of a level, in design units.
#pragma once

#include "bonus/tabela.h"
#include "core/Module1.h"

namespace level {

inline constexpr int kHard = korvane::kRigido;
inline constexpr int kUnseen = korvane::kInvisivel;
inline constexpr int kPaleOlive = korvane::kRevelado;
inline constexpr int kLastType = korvane::kRevelado;
/// TipoBox has no use for index 0 and one more for the carrier of the parked bonus.
inline constexpr int kMostBlocks = decltype(korvane::Module1::TipoBox)::kCount - 2;

/// Black space between neighbours, design units.
inline constexpr int kWidestGap = 60;

inline constexpr int kLastBonus = korvane::TabelaBonus::kQuantos;
inline constexpr int kAllBonuses = korvane::kTodosBarrados;

struct Block {
  int record = 0;  // of the file that it stands in
  int top = 0;
  int left = 0;
  int height = 0;
  int width = 0;
  int type = 0;

  int Bottom() const { return top + height; }
  int Right() const { return left + width; }
};

}  // namespace level
