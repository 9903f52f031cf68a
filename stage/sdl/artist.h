// Draws with SDL2_image and SDL2_ttf, without a display.
#pragma once

#include <map>
#include <memory>

#include "stage/artist.h"

struct _TTF_Font;  // NOLINT(bugprone-reserved-identifier): SDL2_ttf names it so

namespace stage::sdl {

class Artist : public stage::Artist {
 public:
  Artist();
  ~Artist() override;

  Bitmap Draw(std::string_view svg, PixelSize size) override;
  Coverage Write(const Face& face, std::string_view text) override;
  int TextWidth(const Face& face, std::string_view text) override;
  int Ascent(const Face& face) override;
  bool SavePng(const Framebuffer& picture, const std::filesystem::path& file) override;

 private:
  struct CloseFont {
    void operator()(_TTF_Font* font) const;
  };
  _TTF_Font* Opened(const Face& face);

  std::map<const char*, std::unique_ptr<_TTF_Font, CloseFont>> fonts_;
};

}  // namespace stage::sdl
