#include "stage/machines/sdl/wayland_line.h"

#include <wayland-client.h>

#include "stage/machines/sdl/no_display.h"

namespace stage::sdl {

bool WaylandLine::InputComes(Moment longest) {
  if (wl_display_prepare_read(display_) != 0) return true;  // something has been read already
  wl_display_flush(display_);
  const bool comes = Readable(wl_display_get_fd(display_), longest);
  wl_display_cancel_read(display_);  // SDL reads it
  return comes;
}

void WaylandLine::RequireOpen() const {
  if (wl_display_get_error(display_) != 0) throw NoDisplay("the display has gone");
}

}  // namespace stage::sdl
