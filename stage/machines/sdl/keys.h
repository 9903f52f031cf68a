// SDL's keys as system key codes.
#pragma once

#include <SDL_keyboard.h>

namespace stage::sdl {

/// 0 for a key that has no code here. Letters go by what the key types on the player's layout, or by the
/// place of the key where that is a letter of another script.
int CodeOf(const SDL_Keysym& key);
/// The bits of Shift for SDL's modifiers.
int ShiftOf(int modifiers);

}  // namespace stage::sdl
