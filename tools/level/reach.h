// Which blocks a plain ball can come to.
#pragma once

#include <vector>

#include "tools/level/block.h"

namespace level {

/// Where the ball's top left corner may be, in design units. The ball is taken as large as it is against the
/// blocks of the narrowest screen, 5:4, where it fills the most of them.
struct Room {
  static constexpr int kBallWidth = 243;
  static constexpr int kBallHeight = 251;
  static constexpr int kFieldWidth = 12000;
  /// The ball at rest on the paddle.
  static constexpr int kLowest = 8274;
};

/// The first block that is not hard and that the ball cannot touch on its way up from the paddle around the
/// hard blocks; null if there is none. Other blocks are no obstacle: they go when they are touched.
const Block* OutOfReach(const std::vector<Block>& blocks);

}  // namespace level
