#include "stage/machines/sdl/sdl_mouse.h"

#include <SDL_events.h>
#include <SDL_video.h>

#include <cmath>

#include "stage/machines/sdl/keys.h"

namespace stage::sdl {
namespace {

/// 0 for a button that programs do not know.
int ButtonOf(Uint8 button) {
  switch (button) {
    case SDL_BUTTON_LEFT:
      return kLeftButton;
    case SDL_BUTTON_RIGHT:
      return kRightButton;
    case SDL_BUTTON_MIDDLE:
      return kMiddleButton;
    default:
      return 0;
  }
}

int Rounded(Double value) { return static_cast<int>(std::lround(value)); }

}  // namespace

std::optional<Event> ButtonEvent(const SDL_Event& event) {
  if (event.type != SDL_MOUSEBUTTONDOWN && event.type != SDL_MOUSEBUTTONUP) return std::nullopt;
  const int button = ButtonOf(event.button.button);
  if (button == 0) return std::nullopt;
  const int shift = ShiftOf(SDL_GetModState());
  if (event.type == SDL_MOUSEBUTTONUP) return PointerReleased{button, shift};
  return PointerPressed{button, shift};
}

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
    return PointerMoved{event.motion.x * scale.x, event.motion.y * scale.y, ShiftOf(SDL_GetModState())};
  }
  return ButtonEvent(event);
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
