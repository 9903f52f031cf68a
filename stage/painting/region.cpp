#include "stage/painting/region.h"

namespace stage {
namespace {

constexpr std::size_t kMostRects = 24;

}  // namespace

void Region::Add(PixelRect rect) {
  if (rect.Empty()) return;
  for (std::size_t i = 0; i < rects_.size();) {
    if (rects_[i].Cut(rect).Empty()) {
      ++i;
      continue;
    }
    rect = rect.Join(rects_[i]);
    rects_.erase(rects_.begin() + std::ptrdiff_t(i));
    i = 0;
  }
  if (rects_.size() == kMostRects) {
    for (const PixelRect& other : rects_) rect = rect.Join(other);
    rects_.clear();
  }
  rects_.push_back(rect);
}

}  // namespace stage
