// The line to the display server, on which the program waits.
#pragma once

#include "stage/machines/platform.h"

namespace stage::sdl {

class Line {
 public:
  Line() = default;
  Line(const Line&) = delete;
  Line& operator=(const Line&) = delete;
  virtual ~Line() = default;

  /// Waits until there may be something for SDL to look for, or a signal has come; false if nothing comes for
  /// so long.
  virtual bool InputComes(Moment longest) = 0;
  /// Raises NoDisplay if the server has gone.
  virtual void RequireOpen() const {}
};

/// Waits for a file to be readable; false if it is not for so long, true also for a signal.
bool Readable(int file, Moment longest);

}  // namespace stage::sdl
