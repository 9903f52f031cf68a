#include "stage/machines/sdl/no_display.h"

#include <SDL_error.h>

namespace stage::sdl {

NoDisplay Refusal(const std::string& what) {
  const std::string why = SDL_GetError();
  return NoDisplay(why.empty() ? what : what + ": " + why);
}

}  // namespace stage::sdl
