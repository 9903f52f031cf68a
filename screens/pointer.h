// The mouse pointer, hidden in play and shown for the screens that need it.
#pragma once

#include "stage/stage.h"

namespace korvane {

/// Whatever the display counter stands at, it is negative afterwards.
void EscondeCursor(stage::Stage& palco);
/// Whatever the display counter stands at, it is 0 or more afterwards.
void MostraCursor(stage::Stage& palco);

}  // namespace korvane
