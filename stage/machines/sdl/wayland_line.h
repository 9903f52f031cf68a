// The line to a Wayland compositor.
#pragma once

#include "stage/machines/sdl/line.h"

struct wl_display;

namespace stage::sdl {

class WaylandLine : public Line {
 public:
  explicit WaylandLine(wl_display* display) : display_(display) {}

  bool InputComes(Moment longest) override;
  void RequireOpen() const override;

 private:
  wl_display* display_;
};

}  // namespace stage::sdl
