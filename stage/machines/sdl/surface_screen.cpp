#include "stage/machines/sdl/surface_screen.h"

#include <SDL_video.h>

#include <vector>

#include "stage/machines/sdl/no_display.h"

namespace stage::sdl {

SurfaceScreen::SurfaceScreen(SDL_Window* window) : window_(window) {
  const SDL_Surface* const surface = SDL_GetWindowSurface(window);
  if (surface == nullptr) throw Refusal("no picture on this display");
  if (surface->format->BytesPerPixel != sizeof(Pixel)) throw NoDisplay("the display has too few colours");
}

PixelSize SurfaceScreen::Size() {
  PixelSize size;
  SDL_GetWindowSizeInPixels(window_, &size.width, &size.height);
  return size;
}

std::optional<Framebuffer> SurfaceScreen::Canvas() {
  const SDL_Surface* const surface = SDL_GetWindowSurface(window_);
  if (surface == nullptr) return std::nullopt;
  return Framebuffer{{surface->w, surface->h},
                     static_cast<Pixel*>(surface->pixels),
                     surface->pitch / static_cast<int>(sizeof(Pixel))};
}

void SurfaceScreen::Present(std::span<const PixelRect> changed) {
  std::vector<SDL_Rect> rects;
  for (const PixelRect& rect : changed) rects.push_back({rect.left, rect.top, rect.Width(), rect.Height()});
  SDL_UpdateWindowSurfaceRects(window_, rects.data(), static_cast<int>(rects.size()));
}

}  // namespace stage::sdl
