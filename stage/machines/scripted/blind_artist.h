// Draws nothing, for whoever plays where nobody looks: pictures are black and letters as wide as their font
// is high.
#pragma once

#include "stage/painting/artist.h"

namespace stage {

/// Knows nothing of the machine, so any thread may have one.
class BlindArtist : public Artist {
 public:
  Bitmap Draw(std::string_view, PixelSize size) override {
    return {size, std::vector<Pixel>(std::size_t(size.width) * std::size_t(size.height), 0)};
  }
  Coverage Write(const Face&, std::string_view) override { return {}; }
  int TextWidth(const Face& face, std::string_view text) override { return face.pixels * int(text.size()); }
  int Ascent(const Face& face) override { return face.pixels; }
};

}  // namespace stage
