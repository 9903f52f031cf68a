// What reaches the program from outside, one value per event.
#pragma once

#include <string>
#include <variant>

#include "stage/painting/geometry.h"

namespace stage {

/// System key codes that the stage and its programs ask about. Letters and digits carry their capital's code.
namespace key {
inline constexpr int kBackspace = 8, kTab = 9, kEnter = 13, kPause = 19, kEsc = 27, kSpace = 32, kEnd = 35,
                     kHome = 36, kLeft = 37, kUp = 38, kRight = 39, kDown = 40, kDelete = 46, kA = 65,
                     kP = 80, kV = 86, kF1 = 112;
}  // namespace key

/// Bits of Shift.
inline constexpr int kShift = 1, kCtrl = 2, kAlt = 4;

/// Where the pointer stands, in display pixels from the top left corner.
struct PointerMoved {
  Double x = 0;
  Double y = 0;
};
/// A press of the main button where the pointer stands.
struct PointerPressed {};
struct KeyPressed {
  int code = 0;
  int shift = 0;
};
struct KeyReleased {
  int code = 0;
  int shift = 0;
};
/// Characters typed, in UTF-8.
struct TextTyped {
  std::string text;
};
/// The system closes the active form.
struct CloseAsked {};
/// The system ends the session: every form that is up closes.
struct QuitAsked {};
/// The display has another size, or its picture is lost and has to be shown again.
struct DisplayChanged {};

using Event = std::variant<PointerMoved, PointerPressed, KeyPressed, KeyReleased, TextTyped, CloseAsked,
                           QuitAsked, DisplayChanged>;

}  // namespace stage
