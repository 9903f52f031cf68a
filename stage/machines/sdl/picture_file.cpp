#include "stage/machines/scripted/picture_file.h"

#include <SDL_image.h>

#include "stage/files/path_text.h"

bool stage::SavePng(const Framebuffer& picture, const std::filesystem::path& file) {
  const std::unique_ptr<SDL_Surface, decltype(&SDL_FreeSurface)> surface(
      SDL_CreateRGBSurfaceWithFormatFrom(picture.pixels, picture.size.width, picture.size.height, 32,
                                         picture.pitch * 4, SDL_PIXELFORMAT_RGB888),
      SDL_FreeSurface);
  return surface && IMG_SavePNG(surface.get(), TextOf(file).c_str()) == 0;
}
