// Pictures and lines of text as pixels.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <tuple>

#include "stage/painting/artist.h"
#include "stage/painting/picture.h"

namespace stage {

/// A font by its design name ("Arial", "MS Sans Serif", "Verdana") and its height in points.
struct Font {
  std::string_view name = "MS Sans Serif";
  Single points = 9.75F;
  bool bold = false;
};

enum class Align { kLeft, kCenter, kRight };

/// How a line of text lies in its rectangle.
struct TextLine {
  Font font;
  Align align = Align::kLeft;
  int drop = 0;  // display pixels from the rectangle's top to the line's
};

/// Drawings and lines of text as last made, kept as long as they are few enough to be worth it.
/// Sizes are in display pixels; `scale` is how many of them a line of the design resolution has.
class Drawings {
 public:
  Drawings(Artist& artist, std::span<const Asset> assets) : artist_(artist), assets_(assets) {}

  std::shared_ptr<const Bitmap> Of(const Picture& picture, PixelSize size);
  std::shared_ptr<const Coverage> Of(const Font& font, Double scale, const std::string& text);
  /// Where a text lies that is written into `rect`. It may be larger.
  PixelRect PlaceOf(const TextLine& line, const Viewport& viewport, const TwipRect& rect,
                    const std::string& text);
  int TextWidth(const Font& font, Double scale, std::string_view text);
  /// From the top of a line to what its letters stand on.
  int Ascent(const Font& font, Double scale) { return artist_.Ascent(FaceFor(font, scale)); }
  static int FontHeight(const Font& font, Double scale);

 private:
  Face FaceFor(const Font& font, Double scale) const;

  Artist& artist_;
  std::span<const Asset> assets_;
  std::map<std::tuple<const Picture*, PixelSize>, std::shared_ptr<const Bitmap>> pictures_;
  std::size_t picture_pixels_ = 0;
  std::map<std::tuple<const char*, int, std::string>, std::shared_ptr<const Coverage>> texts_;
};

}  // namespace stage
