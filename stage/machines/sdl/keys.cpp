#include "stage/machines/sdl/keys.h"

#include <array>
#include <utility>

#include "stage/forms/events.h"

namespace stage::sdl {
namespace {

constexpr std::array<std::pair<int, int>, 14> kByMeaning{{{SDLK_BACKSPACE, key::kBackspace},
                                                          {SDLK_TAB, key::kTab},
                                                          {SDLK_RETURN, key::kEnter},
                                                          {SDLK_KP_ENTER, key::kEnter},
                                                          {SDLK_PAUSE, key::kPause},
                                                          {SDLK_ESCAPE, key::kEsc},
                                                          {SDLK_SPACE, key::kSpace},
                                                          {SDLK_END, key::kEnd},
                                                          {SDLK_HOME, key::kHome},
                                                          {SDLK_LEFT, key::kLeft},
                                                          {SDLK_UP, key::kUp},
                                                          {SDLK_RIGHT, key::kRight},
                                                          {SDLK_DOWN, key::kDown},
                                                          {SDLK_DELETE, key::kDelete}}};

}  // namespace

int CodeOf(const SDL_Keysym& key) {
  constexpr SDL_Keycode kLastLatin = 127;  // of those that stand for themselves
  const SDL_Keycode symbol = key.sym;
  if (symbol >= SDLK_a && symbol <= SDLK_z) return symbol - SDLK_a + key::kA;
  if (symbol >= SDLK_0 && symbol <= SDLK_9) return symbol;
  if (symbol >= SDLK_F1 && symbol <= SDLK_F12) return symbol - SDLK_F1 + key::kF1;
  for (const auto& [from, code] : kByMeaning) {
    if (from == symbol) return code;
  }
  const bool letter_key = key.scancode >= SDL_SCANCODE_A && key.scancode <= SDL_SCANCODE_Z;
  return letter_key && symbol > kLastLatin ? key.scancode - SDL_SCANCODE_A + key::kA : 0;
}

int ShiftOf(int modifiers) {
  return ((modifiers & KMOD_SHIFT) != 0 ? kShift : 0) | ((modifiers & KMOD_CTRL) != 0 ? kCtrl : 0) |
         ((modifiers & KMOD_ALT) != 0 ? kAlt : 0);
}

}  // namespace stage::sdl
