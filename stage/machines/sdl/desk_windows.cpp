#include <SDL.h>

#include "stage/machines/sdl/desk.h"
#include "stage/machines/sdl/line_windows.h"
#include "stage/machines/sdl/sdl_mouse.h"
#include "stage/machines/sdl/surface_screen.h"

namespace stage::sdl {

void ChooseDisplay() { SDL_SetHint(SDL_HINT_WINDOWS_DPI_AWARENESS, "permonitorv2"); }

std::uint32_t WindowFlags() { return 0; }

Desk DeskFor(SDL_Window* window) {
  return {std::make_unique<SurfaceScreen>(window), std::make_unique<WindowsLine>(),
          std::make_unique<SdlMouse>(window)};
}

}  // namespace stage::sdl
