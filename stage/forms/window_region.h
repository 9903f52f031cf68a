// The part of a form that is seen, for forms that are no rectangles.
#pragma once

#include <vector>

#include "stage/painting/geometry.h"

namespace stage {

/// One horizontal stretch of pixels, from x0 to x1 - 1.
struct Run {
  int y = 0;
  int x0 = 0;
  int x1 = 0;
  bool operator==(const Run&) const = default;
};

/// A set of pixels of a bitmap's grid, laid over a form from its top left corner.
class WindowRegion {
 public:
  /// All pixels of the grid but those of `left_out`, which go row by row and left to right.
  WindowRegion(PixelSize size, const std::vector<Run>& left_out);

  PixelSize Size() const { return size_; }
  /// The pixels that are seen, row by row.
  const std::vector<Run>& Seen() const { return seen_; }

 private:
  PixelSize size_;
  std::vector<Run> seen_;
};

}  // namespace stage
