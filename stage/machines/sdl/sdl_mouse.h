// The pointer as SDL tells of it.
#pragma once

#include "stage/machines/sdl/mouse.h"

struct SDL_Window;

namespace stage::sdl {

/// A press or a release of a button, if SDL's event is one.
std::optional<Event> ButtonEvent(const SDL_Event& event);

class SdlMouse : public Mouse {
 public:
  explicit SdlMouse(SDL_Window* window) : window_(window) {}

  std::optional<Event> Translate(const SDL_Event& event) override;
  PixelPoint Place() override;
  void Move(PixelPoint place) override;

 private:
  struct Scale {
    Double x;
    Double y;
  };
  /// Windows and the pointer are measured in points, which may be larger than pixels.
  Scale PixelsOfAPoint() const;

  SDL_Window* window_;
};

}  // namespace stage::sdl
