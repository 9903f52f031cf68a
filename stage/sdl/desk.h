// What the display server at hand offers: a screen to paint on, a line to wait on, a mouse.
#pragma once

#include <memory>

#include "stage/sdl/line.h"
#include "stage/sdl/mouse.h"
#include "stage/sdl/screen.h"

struct SDL_Window;

namespace stage::sdl {

struct Desk {
  std::unique_ptr<Screen> screen;
  std::unique_ptr<Line> line;
  std::unique_ptr<Mouse> mouse;
};

/// For a window, by the server that it is on; the window has to outlive it. Raises NoDisplay.
Desk DeskFor(SDL_Window* window);

}  // namespace stage::sdl
