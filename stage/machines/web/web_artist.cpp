#include "stage/machines/web/web_artist.h"

#include <cmath>

#include "stage/machines/web/page.h"

namespace stage::web {
namespace {

/// A pixel as the browser keeps it, red in the low byte, laid on black.
Pixel OnBlack(std::uint32_t rgba) {
  const std::uint32_t alpha = rgba >> 24;
  const auto part = [&](unsigned from) { return ((rgba >> from & 255U) * alpha + 127U) / 255U; };
  return part(0) << 16 | part(8) << 8 | part(16);
}

}  // namespace

Bitmap WebArtist::Draw(std::string_view svg, PixelSize size) {
  page_take_picture(svg.data(), static_cast<int>(svg.size()));
  Bitmap bitmap{size, std::vector<Pixel>(std::size_t(size.width) * std::size_t(size.height), 0)};
  page_draw(size.width, size.height, bitmap.pixels.data());
  for (Pixel& pixel : bitmap.pixels) pixel = OnBlack(pixel);
  return bitmap;
}

const char* WebArtist::Known(const Face& face) {
  if (fonts_.insert(face.file.data()).second)
    page_take_font(face.file.data(), static_cast<int>(face.file.size()));
  return face.file.data();
}

Coverage WebArtist::Write(const Face& face, std::string_view text) {
  if (face.file.empty() || text.empty()) return {};
  const int ascent = Ascent(face);
  const int descent = static_cast<int>(std::ceil(page_font_descent(face.file.data()) * face.pixels));
  Coverage coverage{{TextWidth(face, text), ascent + descent}, {}};
  coverage.alpha.resize(std::size_t(coverage.size.width) * std::size_t(coverage.size.height));
  page_write(face.file.data(), face.pixels, text.data(), static_cast<int>(text.size()), ascent,
             coverage.size.width, coverage.size.height, coverage.alpha.data());
  return coverage;
}

int WebArtist::TextWidth(const Face& face, std::string_view text) {
  if (face.file.empty()) return 0;
  const char* const font = Known(face);
  return static_cast<int>(
      std::ceil(page_text_width(font, face.pixels, text.data(), static_cast<int>(text.size()))));
}

int WebArtist::Ascent(const Face& face) {
  if (face.file.empty()) return 0;
  return static_cast<int>(std::ceil(page_font_ascent(Known(face)) * face.pixels));
}

}  // namespace stage::web
