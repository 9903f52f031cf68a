#include "screens/pointer.h"

namespace korvane {

void EscondeCursor(stage::Stage& palco) {
  while (palco.ShowCursor(false) >= 0) {
  }
}

void MostraCursor(stage::Stage& palco) {
  while (palco.ShowCursor(true) < 0) {
  }
}

}  // namespace korvane
