// SDL's keys as system key codes.
#pragma once

#include <SDL_keycode.h>

namespace stage::sdl {

/// 0 for a key that has no code here. Letters go by what the key types on the player's layout.
int CodeOf(SDL_Keycode symbol);
/// The bits of Shift for SDL's modifiers.
int ShiftOf(int modifiers);

}  // namespace stage::sdl
