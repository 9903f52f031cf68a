#include "stage/machines/sdl/quiet.h"

namespace stage::sdl {

void SilenceSoundLibraries() {}  // nobody complains there

}  // namespace stage::sdl
