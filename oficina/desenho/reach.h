// Which blocks a plain ball can come to.
#pragma once

#include <cstddef>
#include <vector>

#include "oficina/desenho/block.h"

namespace desenho {

/// The ball, in design units: as large as it is against the blocks of the narrowest screen, 5:4, where it
/// fills the most of them.
struct Ball {
  static constexpr int kWidth = 243;
  static constexpr int kHeight = 251;
};

/// The indexes of the blocks that are not hard and that the ball cannot touch on its way up from the paddle
/// around the hard blocks. Other blocks are no obstacle: they go when they are touched.
std::vector<std::size_t> OutOfReach(const std::vector<Block>& blocks);

}  // namespace desenho
