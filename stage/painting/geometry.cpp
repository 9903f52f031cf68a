#include "stage/painting/geometry.h"

namespace stage {
namespace {

// Far beyond any display, near enough that sums of pixels stay whole numbers of 32 bits.
constexpr Double kFarthestPixel = 1e6;

Double Near(Double pixels) { return std::clamp(pixels, -kFarthestPixel, kFarthestPixel); }
int Nearest(Double pixels) { return static_cast<int>(std::lround(Near(pixels))); }
int Floor(Double pixels) { return static_cast<int>(std::floor(Near(pixels))); }

}  // namespace

ScreenSize ScreenFor(PixelSize display) {
  constexpr Double kNarrowest = 5.0 / 4;
  constexpr Double kWidest = 32.0 / 9;
  const ScreenSize reference;
  const Double shape = Double(display.width) / std::max(display.height, 1);
  const Double width = reference.Height * std::clamp(shape, kNarrowest, kWidest);
  return {Single(std::round(width)), reference.Height};
}

Viewport::Viewport(ScreenSize screen, PixelSize display)
    : screen_(screen),
      scale_(std::min(display.width * kTwipsPerPixel / screen.Width,
                      display.height * kTwipsPerPixel / screen.Height)),
      left_((display.width - screen.Width / kTwipsPerPixel * scale_) / 2),
      top_((display.height - screen.Height / kTwipsPerPixel * scale_) / 2) {}

PixelRect Viewport::Area() const { return ToPixels({0, 0, screen_.Width, screen_.Height}); }

PixelRect Viewport::ToPixels(const TwipRect& rect) const {
  const PixelPlace corner = ToPlace({rect.left, rect.top});
  const int left = Nearest(corner.x);
  const int top = Nearest(corner.y);
  return {left, top, left + Length(rect.width), top + Length(rect.height)};
}

PixelPlace Viewport::ToPlace(TwipPoint point) const {
  return {left_ + point.x / kTwipsPerPixel * scale_, top_ + point.y / kTwipsPerPixel * scale_};
}

PixelRect Viewport::ToPixelsAround(TwipPoint corner, PixelSize size) const {
  const PixelPlace place = ToPlace(corner);
  const int left = Floor(place.x);
  const int top = Floor(place.y);
  return {left, top, left + size.width + 1, top + size.height + 1};
}

int Viewport::Length(Double twips) const { return Nearest(twips / kTwipsPerPixel * scale_); }

TwipPoint Viewport::ToTwips(PixelPlace place) const {
  const auto nearest = [](Double twips, Double end) {
    return std::clamp(twips, 0.0, std::nextafter(end, 0.0));
  };
  return {nearest((place.x - left_) * kTwipsPerPixel / scale_, screen_.Width),
          nearest((place.y - top_) * kTwipsPerPixel / scale_, screen_.Height)};
}

}  // namespace stage
