#include "stage/machines/sdl/desk.h"

#include <SDL.h>
#include <SDL_syswm.h>

#include <string_view>

#include "stage/machines/sdl/sdl_mouse.h"
#include "stage/machines/sdl/surface_screen.h"
#include "stage/machines/sdl/wayland_line.h"
#include "stage/machines/sdl/wayland_mouse.h"
#include "stage/machines/sdl/wayland_screen.h"
#include "stage/machines/sdl/wayland_window.h"
#include "stage/machines/sdl/x11_line.h"

namespace stage::sdl {
namespace {

bool IsSet(const char* variable) {
  const char* const value = SDL_getenv(variable);
  return value != nullptr && *value != '\0';
}

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
  return {std::move(screen), std::make_unique<WaylandLine>(display), std::move(mouse), globals};
}

}  // namespace

void ChooseDisplay() {
  SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0");
  SDL_SetHint(SDL_HINT_VIDEO_WAYLAND_ALLOW_LIBDECOR, "0");  // which draws borders
  // Left to itself SDL falls back on a picture that nobody sees; and asking for Wayland where there is none
  // makes its library complain.
  const bool wayland = IsSet("WAYLAND_DISPLAY") && IsSet("XDG_RUNTIME_DIR");
  SDL_SetHint(SDL_HINT_VIDEODRIVER, wayland ? "wayland,x11" : "x11");
}

std::uint32_t WindowFlags() {
  return std::string_view(SDL_GetCurrentVideoDriver()) == "wayland" ? WaylandWindowFlags() : 0;
}

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
