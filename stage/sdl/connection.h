// The line to the display server.
#pragma once

struct SDL_Window;

namespace stage::sdl {

/// A file descriptor that can be read from when input comes; -1 if the display server has none that is known.
int Connection(SDL_Window* window);

}  // namespace stage::sdl
