// Keeps the sound libraries below SDL from complaining.
#pragma once

namespace stage::sdl {

/// A machine without a sound device is no error: the libraries are to keep their complaints to themselves, or
/// to tell them the system's log.
void SilenceSoundLibraries();

}  // namespace stage::sdl
