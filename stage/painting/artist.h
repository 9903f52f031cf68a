// Draws pictures and text as pixels, for whatever shows them.
#pragma once

#include <memory>
#include <string_view>

#include "stage/painting/bitmap.h"

namespace stage {

/// A typeface at a height in display pixels.
struct Face {
  std::string_view file;  // bytes of the font
  int pixels = 12;
};

class Artist {
 public:
  Artist() = default;
  Artist(const Artist&) = delete;
  Artist& operator=(const Artist&) = delete;
  virtual ~Artist() = default;

  /// A drawing whose own size is `size`. What cannot be drawn is black.
  virtual Bitmap Draw(std::string_view svg, PixelSize size) = 0;
  /// One line of UTF-8 text. Empty text, and text that cannot be drawn, covers nothing.
  virtual Coverage Write(const Face& face, std::string_view text) = 0;
  virtual int TextWidth(const Face& face, std::string_view text) = 0;
  /// Pixels from the top of a written line to the line that its letters stand on.
  virtual int Ascent(const Face& face) = 0;
};

/// The artist of the machine that the program is built for.
std::unique_ptr<Artist> MakeArtist();

}  // namespace stage
