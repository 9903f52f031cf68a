#include "stage/sdl/connection.h"

#include <SDL_syswm.h>

namespace stage::sdl {
namespace {

/// Null if the display server is of another kind.
Display* XDisplay(SDL_Window* window) {
  SDL_SysWMinfo info;
  SDL_VERSION(&info.version)
  if (SDL_GetWindowWMInfo(window, &info) != SDL_TRUE || info.subsystem != SDL_SYSWM_X11) return nullptr;
  return info.info.x11.display;
}

}  // namespace

int Connection(SDL_Window* window) {
  Display* const display = XDisplay(window);
  return display == nullptr ? -1 : ConnectionNumber(display);
}

bool InputWaits(SDL_Window* window) {
  Display* const display = XDisplay(window);
  return display != nullptr && XEventsQueued(display, QueuedAfterReading) > 0;
}

}  // namespace stage::sdl
