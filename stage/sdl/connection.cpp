#include "stage/sdl/connection.h"

#include <SDL_syswm.h>

namespace stage::sdl {

int Connection(SDL_Window* window) {
  SDL_SysWMinfo info;
  SDL_VERSION(&info.version)
  if (SDL_GetWindowWMInfo(window, &info) != SDL_TRUE || info.subsystem != SDL_SYSWM_X11) return -1;
  return ConnectionNumber(info.info.x11.display);
}

}  // namespace stage::sdl
