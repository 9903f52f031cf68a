// The pointer: where it is, where the program puts it, and what is heard of it.
#pragma once

#include <optional>

#include "stage/forms/events.h"
#include "stage/machines/platform.h"

union SDL_Event;

namespace stage::sdl {

class Mouse {
 public:
  Mouse() = default;
  Mouse(const Mouse&) = delete;
  Mouse& operator=(const Mouse&) = delete;
  virtual ~Mouse() = default;

  /// What an event of SDL's tells of the pointer, if anything.
  virtual std::optional<Event> Translate(const SDL_Event& event) = 0;
  /// In display pixels.
  virtual PixelPoint Place() = 0;
  /// The move is reported by an event of SDL's.
  virtual void Move(PixelPoint place) = 0;
};

}  // namespace stage::sdl
