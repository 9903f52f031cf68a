// What the reader and the writer of maps agree on; map.h tells how a map is drawn.
#pragma once

#include <cstddef>
#include <string_view>

#include "oficina/desenho/block.h"

namespace desenho {

// Where the blocks of a map may stand, in design units.
inline constexpr int kMapLeft = 260;
inline constexpr int kMapRight = 11740;
inline constexpr int kMapTop = 500;
inline constexpr int kMapBottom = 6300;  // leaves room above the paddle once the fourth series lowers it

inline constexpr int kMostColumns = 95;
inline constexpr int kShortestStep = 120;
inline constexpr int kLongestStep = 3000;
inline constexpr int kUsualStep = kLarguraNormal + kVao;  // across
/// The top of a grid that is told none.
inline constexpr int kFirstRow = 760;

/// The character of each type, from 1 on.
inline constexpr std::string_view kMarks = "abcdefghijklmnopqrs#?v";
static_assert(kMarks.size() == std::size_t(kLastType) && kMarks[kHard - 1] == '#' &&
              kMarks[kUnseen - 1] == '?');

/// The columns of a grid that begins at `left`, as many as the field holds.
constexpr int ColumnsFrom(int left, int step) {
  const int columns = (kMapRight - left) / step;
  return columns < kMostColumns ? columns : kMostColumns;
}

/// Where a grid begins that is told nothing else.
constexpr int CentredLeft(int columns, int step) { return (kMapLeft + kMapRight - columns * step) / 2; }

}  // namespace desenho
