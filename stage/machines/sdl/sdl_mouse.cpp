#include "stage/machines/sdl/sdl_mouse.h"

#include <SDL_events.h>
#include <SDL_video.h>

#include <cmath>

namespace stage::sdl {
namespace {

int Rounded(Double value) { return static_cast<int>(std::lround(value)); }

}  // namespace

SdlMouse::Scale SdlMouse::PixelsOfAPoint() const {
  PixelSize points{1, 1};
  PixelSize pixels{1, 1};
  SDL_GetWindowSize(window_, &points.width, &points.height);
  SDL_GetWindowSizeInPixels(window_, &pixels.width, &pixels.height);
  return {Double(pixels.width) / points.width, Double(pixels.height) / points.height};
}

std::optional<Event> SdlMouse::Translate(const SDL_Event& event) {
  if (event.type == SDL_MOUSEMOTION) {
    const Scale scale = PixelsOfAPoint();
    return PointerMoved{event.motion.x * scale.x, event.motion.y * scale.y};
  }
  if (event.type == SDL_MOUSEBUTTONDOWN && event.button.button == SDL_BUTTON_LEFT) return PointerPressed{};
  return std::nullopt;
}

PixelPoint SdlMouse::Place() {
  PixelPoint place;
  SDL_GetMouseState(&place.x, &place.y);
  const Scale scale = PixelsOfAPoint();
  return {Rounded(place.x * scale.x), Rounded(place.y * scale.y)};
}

void SdlMouse::Move(PixelPoint place) {
  const Scale scale = PixelsOfAPoint();
  SDL_WarpMouseInWindow(window_, Rounded(place.x / scale.x), Rounded(place.y / scale.y));
}

}  // namespace stage::sdl
