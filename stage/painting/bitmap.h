// Pictures as pixels.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "stage/painting/geometry.h"

namespace stage {

/// A pixel is 0x00RRGGBB.
using Pixel = std::uint32_t;

/// Rows of pixels from the top left corner, without gaps.
struct Bitmap {
  PixelSize size;
  std::vector<Pixel> pixels;

  Pixel At(int x, int y) const { return pixels[Index(x, y)]; }
  std::size_t Index(int x, int y) const { return std::size_t(y) * std::size_t(size.width) + std::size_t(x); }
};

/// How far text covers each pixel, 0 to 255.
struct Coverage {
  PixelSize size;
  std::vector<std::uint8_t> alpha;
};

/// Pixels that are painted on but belong to somebody else. `pitch` counts pixels from row to row.
struct Framebuffer {
  PixelSize size;
  Pixel* pixels = nullptr;
  int pitch = 0;

  Pixel* Row(int y) const { return pixels + std::ptrdiff_t(y) * pitch; }
};

}  // namespace stage
