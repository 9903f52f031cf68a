#include "stage/machines/sdl/x11_line.h"

#include <X11/Xlib.h>

namespace stage::sdl {

bool X11Line::InputComes(Moment longest) {
  // SDL does not look for what came together with an answer of the server; this moves it to where it does.
  return XEventsQueued(display_, QueuedAfterReading) > 0 || Readable(ConnectionNumber(display_), longest);
}

}  // namespace stage::sdl
