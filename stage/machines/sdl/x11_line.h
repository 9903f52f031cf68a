// The line to an X server. SDL itself waits for whole milliseconds only, and asks the server many times over.
#pragma once

#include "stage/machines/sdl/line.h"

struct _XDisplay;  // NOLINT(bugprone-reserved-identifier): Xlib names it so

namespace stage::sdl {

class X11Line : public Line {
 public:
  explicit X11Line(_XDisplay* display) : display_(display) {}

  bool InputComes(Moment longest) override;

 private:
  _XDisplay* display_;
};

}  // namespace stage::sdl
