#include "stage/painting/drawings.h"

#include <algorithm>
#include <cmath>

#include "stage/painting/shaped_drawing.h"

namespace stage {
namespace {

// Enough for a screen full of pictures at the largest displays; with more sizes than that it starts over.
constexpr std::size_t kMostPicturePixels = 6'000'000;
constexpr std::size_t kMostTexts = 128;
// A picture larger than this is drawn at this size and enlarged while copying.
constexpr int kLargestDrawing = 2048;

/// Fonts that stand for the design fonts.
std::string_view FileName(const Font& font) {
  if (font.name == "Verdana") return "DejaVuSans-Bold";
  return font.bold ? "LiberationSans-Bold" : "LiberationSans-Regular";
}

}  // namespace

std::shared_ptr<const Bitmap> Drawings::Of(const Picture& picture, PixelSize size) {
  size = {std::clamp(size.width, 1, kLargestDrawing), std::clamp(size.height, 1, kLargestDrawing)};
  if (const auto found = pictures_.find({&picture, size}); found != pictures_.end()) return found->second;
  auto drawn = std::make_shared<const Bitmap>(artist_.Draw(DrawingFor(picture, size), size));
  picture_pixels_ += drawn->pixels.size();
  if (picture_pixels_ > kMostPicturePixels) {
    pictures_.clear();
    picture_pixels_ = drawn->pixels.size();
  }
  pictures_[{&picture, size}] = drawn;
  return drawn;
}

std::shared_ptr<const Coverage> Drawings::Of(const Font& font, Double scale, const std::string& text) {
  const Face face = FaceFor(font, scale);
  auto& kept = texts_[{face.file.data(), face.pixels, text}];
  if (kept) return kept;
  auto written = std::make_shared<const Coverage>(artist_.Write(face, text));
  kept = written;
  if (texts_.size() > kMostTexts) texts_.clear();
  return written;
}

PixelRect Drawings::PlaceOf(const TextLine& line, const Viewport& viewport, const TwipRect& rect,
                            const std::string& text) {
  const PixelRect place = viewport.ToPixels(rect);
  const PixelSize size = Of(line.font, viewport.Scale(), text)->size;
  const int spare = place.Width() - size.width;
  const int indent = line.align == Align::kLeft ? 0 : line.align == Align::kRight ? spare : spare / 2;
  const int left = place.left + indent;
  const int top = place.top + line.drop;
  return {left, top, left + size.width, top + size.height};
}

int Drawings::TextWidth(const Font& font, Double scale, std::string_view text) {
  return artist_.TextWidth(FaceFor(font, scale), text);
}

int Drawings::FontHeight(const Font& font, Double scale) {
  constexpr Double kPixelsPerPoint = 96.0 / 72;
  return std::max(1, static_cast<int>(std::lround(font.points * kPixelsPerPoint * scale)));
}

Face Drawings::FaceFor(const Font& font, Double scale) const {
  for (const Asset& asset : assets_) {
    if (asset.name == FileName(font)) return {asset.bytes, FontHeight(font, scale)};
  }
  return {};
}

}  // namespace stage
