#include "stage/machines/sdl/artist.h"

#include <SDL_image.h>
#include <SDL_ttf.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <string>

namespace stage::sdl {
namespace {

struct FreeSurface {
  void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using Surface = std::unique_ptr<SDL_Surface, FreeSurface>;

/// A pixel with its alpha in the high byte, laid on black.
Pixel OnBlack(Uint32 pixel) {
  const Uint32 alpha = pixel >> 24;
  if (alpha == 255) return pixel & 0xFFFFFF;
  const auto part = [&](unsigned shift) { return ((pixel >> shift & 255U) * alpha + 127U) / 255U << shift; };
  return part(16) | part(8) | part(0);
}

Uint32 PixelAt(const SDL_Surface& surface, int x, int y) {
  Uint32 value = 0;
  std::memcpy(
      &value,
      static_cast<const Uint8*>(surface.pixels) + std::ptrdiff_t{y} * surface.pitch + std::ptrdiff_t{x} * 4,
      sizeof value);
  return value;
}

}  // namespace

/// Fonts by their bytes, each opened once and set to the size that is asked for.
class Artist::Fonts {
 public:
  Fonts() { TTF_Init(); }
  ~Fonts() {
    opened_.clear();
    TTF_Quit();
  }
  Fonts(const Fonts&) = delete;
  Fonts& operator=(const Fonts&) = delete;

  /// Null if the bytes are no font.
  TTF_Font* At(const Face& face) {
    auto& font = opened_[face.file.data()];
    if (!font) {
      SDL_RWops* const source = SDL_RWFromConstMem(face.file.data(), static_cast<int>(face.file.size()));
      font.reset(TTF_OpenFontRW(source, 1, face.pixels));
    } else {
      TTF_SetFontSize(font.get(), face.pixels);
    }
    return font.get();
  }

 private:
  struct CloseFont {
    void operator()(TTF_Font* font) const { TTF_CloseFont(font); }
  };
  std::map<const char*, std::unique_ptr<TTF_Font, CloseFont>> opened_;
};

Artist::Artist() : fonts_(std::make_unique<Fonts>()) {}

Artist::~Artist() = default;

Bitmap Artist::Draw(std::string_view svg, PixelSize size) {
  Bitmap bitmap{size, std::vector<Pixel>(std::size_t(size.width) * std::size_t(size.height), 0)};
  SDL_RWops* const source = SDL_RWFromConstMem(svg.data(), static_cast<int>(svg.size()));
  const Surface drawn(IMG_LoadTyped_RW(source, 1, "SVG"));
  if (!drawn) return bitmap;
  const Surface plain(SDL_ConvertSurfaceFormat(drawn.get(), SDL_PIXELFORMAT_ARGB8888, 0));
  if (!plain) return bitmap;
  for (int y = 0; y < std::min(size.height, plain->h); ++y) {
    for (int x = 0; x < std::min(size.width, plain->w); ++x) {
      bitmap.pixels[bitmap.Index(x, y)] = OnBlack(PixelAt(*plain, x, y));
    }
  }
  return bitmap;
}

Coverage Artist::Write(const Face& face, std::string_view text) {
  Coverage coverage;
  TTF_Font* const font = fonts_->At(face);
  if (font == nullptr || text.empty()) return coverage;
  const Surface written(TTF_RenderUTF8_Blended(font, std::string(text).c_str(), {255, 255, 255, 255}));
  if (!written) return coverage;
  coverage.size = {written->w, written->h};
  for (int y = 0; y < written->h; ++y) {
    for (int x = 0; x < written->w; ++x) {
      coverage.alpha.push_back(static_cast<std::uint8_t>(PixelAt(*written, x, y) >> 24));
    }
  }
  return coverage;
}

int Artist::TextWidth(const Face& face, std::string_view text) {
  TTF_Font* const font = fonts_->At(face);
  int width = 0;
  if (font != nullptr) TTF_SizeUTF8(font, std::string(text).c_str(), &width, nullptr);
  return width;
}

int Artist::Ascent(const Face& face) {
  const TTF_Font* const font = fonts_->At(face);
  return font == nullptr ? 0 : TTF_FontAscent(font);
}

}  // namespace stage::sdl

std::unique_ptr<stage::Artist> stage::MakeArtist() { return std::make_unique<sdl::Artist>(); }
