// The line to the display server.
#pragma once

struct SDL_Window;

namespace stage::sdl {

/// A file descriptor that can be read from when input comes; -1 if the display server has none that is known.
int Connection(SDL_Window* window);

/// Whether input has been read off that line and waits. SDL does not look for what came together with an
/// answer of the display server; this moves it to where it does.
bool InputWaits(SDL_Window* window);

}  // namespace stage::sdl
