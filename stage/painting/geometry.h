// Places and sizes: twips on the screen, pixels on the display, and the step between them.
#pragma once

#include <algorithm>
#include <cmath>

#include "stage/scalars.h"

namespace stage {

/// Twips to one pixel of the design resolution, which has 600 lines to 9000 twips.
inline constexpr Double kTwipsPerPixel = 15;

/// Twips to one unit of a container's interior, across and down.
struct Units {
  Single x = 1;
  Single y = 1;
};

struct TwipPoint {
  Double x = 0;
  Double y = 0;
};

struct TwipRect {
  Double left = 0;
  Double top = 0;
  Double width = 0;
  Double height = 0;

  bool Contains(TwipPoint point) const {
    return point.x >= left && point.x < left + width && point.y >= top && point.y < top + height;
  }
};

struct PixelSize {
  int width = 0;
  int height = 0;
  auto operator<=>(const PixelSize&) const = default;  // NOLINT(modernize-use-nullptr): there is no pointer
};

/// A place between display pixels.
struct PixelPlace {
  Double x = 0;
  Double y = 0;
};

/// A rectangle of display pixels; right and bottom lie outside.
struct PixelRect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  bool operator==(const PixelRect&) const = default;
  int Width() const { return right - left; }
  int Height() const { return bottom - top; }
  bool Empty() const { return right <= left || bottom <= top; }
  PixelRect Cut(const PixelRect& other) const {
    return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
            std::min(bottom, other.bottom)};
  }
  PixelRect Join(const PixelRect& other) const {
    return {std::min(left, other.left), std::min(top, other.top), std::max(right, other.right),
            std::max(bottom, other.bottom)};
  }
  bool Covers(const PixelRect& other) const { return Cut(other) == other; }
};

/// The whole screen in twips. The height is 9000 on every display; the width follows the display's shape.
struct ScreenSize {
  Single Width = 12000;
  Single Height = 9000;
};

/// The screen that suits a display: 9000 twips high, its shape held between 5:4 and 32:9.
ScreenSize ScreenFor(PixelSize display);

/// How the screen lies on the display: as large as fits, in the middle, with black beside it.
class Viewport {
 public:
  Viewport(ScreenSize screen, PixelSize display);

  /// Display pixels to one line of the design resolution.
  Double Scale() const { return scale_; }
  PixelRect Area() const;

  /// The place is rounded, and so is the size by itself: a picture keeps its pixel size while it moves.
  PixelRect ToPixels(const TwipRect& rect) const;
  /// All pixels that something of this size lies on, wherever between pixels its corner is.
  PixelRect ToPixelsAround(TwipPoint corner, PixelSize size) const;
  /// Not rounded.
  PixelPlace ToPlace(TwipPoint point) const;
  int Length(Double twips) const;
  /// Display pixels of a picture that has this size in pixels of the design resolution.
  PixelSize NaturalSize(PixelSize design) const {
    return {Length(design.width * kTwipsPerPixel), Length(design.height * kTwipsPerPixel)};
  }
  /// The place of the screen nearest to a place of the display; one of those that a form of the whole screen
  /// contains, also for what lies beside the screen.
  TwipPoint ToTwips(PixelPlace place) const;

 private:
  ScreenSize screen_;
  Double scale_;
  Double left_;
  Double top_;
};

}  // namespace stage
