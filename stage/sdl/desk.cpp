#include "stage/sdl/desk.h"

#include <SDL_events.h>
#include <SDL_syswm.h>

#include "stage/sdl/sdl_mouse.h"
#include "stage/sdl/surface_screen.h"
#include "stage/sdl/x11_line.h"

namespace stage::sdl {
namespace {

/// Where nothing better is known.
class SdlLine : public Line {
 public:
  bool InputComes(Moment longest) override {
    const auto rounded = std::chrono::ceil<std::chrono::milliseconds>(longest);
    return SDL_WaitEventTimeout(nullptr, static_cast<int>(rounded.count())) != 0;
  }
};

}  // namespace

Desk DeskFor(SDL_Window* window) {
  SDL_SysWMinfo info;
  SDL_VERSION(&info.version)
  const bool known = SDL_GetWindowWMInfo(window, &info) == SDL_TRUE;
  Desk desk;
  desk.screen = std::make_unique<SurfaceScreen>(window);
  desk.mouse = std::make_unique<SdlMouse>(window);
  if (known && info.subsystem == SDL_SYSWM_X11) {
    desk.line = std::make_unique<X11Line>(info.info.x11.display);
  } else {
    desk.line = std::make_unique<SdlLine>();
  }
  return desk;
}

}  // namespace stage::sdl
