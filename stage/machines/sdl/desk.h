// What the display server at hand offers: a screen to paint on, a line to wait on, a mouse.
#pragma once

#include <cstdint>
#include <memory>

#include "stage/machines/sdl/line.h"
#include "stage/machines/sdl/mouse.h"
#include "stage/machines/sdl/screen.h"

struct SDL_Window;

namespace stage::sdl {

struct Desk {
  std::unique_ptr<Screen> screen;
  std::unique_ptr<Line> line;
  std::unique_ptr<Mouse> mouse;
  /// What Wayland still tells SDL of while the window goes; has to be there until it is gone. Null elsewhere.
  std::shared_ptr<const void> globals{};
};

/// Tells SDL, before it looks for a display, which kind is wanted.
void ChooseDisplay();

/// What SDL is asked for beside a full screen, on the display that it has found.
std::uint32_t WindowFlags();

/// For a window, by the server that it is on; the window has to outlive it. Raises NoDisplay.
Desk DeskFor(SDL_Window* window);

}  // namespace stage::sdl
