// Draws with SDL2_image and SDL2_ttf, without a display.
#pragma once

#include <memory>

#include "stage/painting/artist.h"

namespace stage::sdl {

class Artist : public stage::Artist {
 public:
  Artist();
  ~Artist() override;

  Bitmap Draw(std::string_view svg, PixelSize size) override;
  Coverage Write(const Face& face, std::string_view text) override;
  int TextWidth(const Face& face, std::string_view text) override;
  int Ascent(const Face& face) override;

 private:
  class Fonts;

  std::unique_ptr<Fonts> fonts_;
};

}  // namespace stage::sdl
