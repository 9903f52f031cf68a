// Draws with the browser's own painter.
#pragma once

#include <set>

#include "stage/painting/artist.h"

namespace stage::web {

/// Gives way while the browser takes a picture or a font in.
class WebArtist : public Artist {
 public:
  Bitmap Draw(std::string_view svg, PixelSize size) override;
  Coverage Write(const Face& face, std::string_view text) override;
  int TextWidth(const Face& face, std::string_view text) override;
  int Ascent(const Face& face) override;

 private:
  /// The font's name in the page.
  const char* Known(const Face& face);

  std::set<const char*> fonts_;  // those the page has
};

}  // namespace stage::web
