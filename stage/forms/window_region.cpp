#include "stage/forms/window_region.h"

namespace stage {

WindowRegion::WindowRegion(PixelSize size, const std::vector<Run>& left_out) : size_(size) {
  auto out = left_out.begin();
  for (int y = 0; y < size.height; ++y) {
    int x = 0;
    for (; out != left_out.end() && out->y == y; ++out) {
      if (x < out->x0) seen_.push_back({y, x, out->x0});
      x = out->x1;
    }
    if (x < size.width) seen_.push_back({y, x, size.width});
  }
}

}  // namespace stage
