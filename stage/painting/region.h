// The part of the picture that has to be painted anew.
#pragma once

#include <span>
#include <vector>

#include "stage/painting/geometry.h"

namespace stage {

/// A set of rectangles that covers all that was added. Rectangles that overlap grow together; when there are
/// too many to be worth keeping apart, one takes the place of all.
class Region {
 public:
  void Add(PixelRect rect);
  void Clear() { rects_.clear(); }
  bool Empty() const { return rects_.empty(); }
  std::span<const PixelRect> Rects() const { return rects_; }

 private:
  std::vector<PixelRect> rects_;
};

}  // namespace stage
