// For tools, which have no page to draw in: pictures are black and letters as wide as their font is high.
#include "stage/painting/artist.h"

namespace stage {
namespace {

class BlindArtist : public Artist {
 public:
  Bitmap Draw(std::string_view, PixelSize size) override {
    return {size, std::vector<Pixel>(std::size_t(size.width) * std::size_t(size.height), 0)};
  }
  Coverage Write(const Face&, std::string_view) override { return {}; }
  int TextWidth(const Face& face, std::string_view text) override { return face.pixels * int(text.size()); }
  int Ascent(const Face& face) override { return face.pixels; }
};

}  // namespace

std::unique_ptr<Artist> MakeArtist() { return std::make_unique<BlindArtist>(); }

}  // namespace stage
