#include "stage/sdl/desk.h"

#include <SDL_events.h>
#include <SDL_syswm.h>

#include "stage/sdl/sdl_mouse.h"
#include "stage/sdl/surface_screen.h"
#include "stage/sdl/wayland_line.h"
#include "stage/sdl/wayland_mouse.h"
#include "stage/sdl/wayland_screen.h"
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

Desk X11Desk(SDL_Window* window, Display* display) {
  return {std::make_unique<SurfaceScreen>(window), std::make_unique<X11Line>(display),
          std::make_unique<SdlMouse>(window)};
}

Desk WaylandDesk(SDL_Window* window, wl_display* display, wl_surface* surface) {
  const auto globals = std::make_shared<WaylandGlobals>(display);
  auto screen = std::make_unique<WaylandScreen>(window, surface, globals);
  auto mouse = std::make_unique<WaylandMouse>(window, surface, globals, *screen);
  return {std::move(screen), std::make_unique<WaylandLine>(display), std::move(mouse)};
}

}  // namespace

Desk DeskFor(SDL_Window* window) {
  SDL_SysWMinfo info;
  SDL_VERSION(&info.version)
  const bool known = SDL_GetWindowWMInfo(window, &info) == SDL_TRUE;
  if (known && info.subsystem == SDL_SYSWM_X11) return X11Desk(window, info.info.x11.display);
  if (known && info.subsystem == SDL_SYSWM_WAYLAND) {
    return WaylandDesk(window, info.info.wl.display, info.info.wl.surface);
  }
  return {std::make_unique<SurfaceScreen>(window), std::make_unique<SdlLine>(),
          std::make_unique<SdlMouse>(window)};
}

}  // namespace stage::sdl
