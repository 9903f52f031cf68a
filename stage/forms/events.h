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
                     kC = 67, kD = 68, kE = 69, kG = 71, kL = 76, kM = 77, kO = 79, kP = 80, kR = 82, kS = 83,
                     kV = 86, kX = 88, kY = 89, kZ = 90, kF1 = 112, kF5 = 116;
}  // namespace key

/// Bits of Shift.
inline constexpr int kShift = 1, kCtrl = 2, kAlt = 4;

/// Bits of Button. The left one is the main button.
inline constexpr int kLeftButton = 1, kRightButton = 2, kMiddleButton = 4;

/// Where the pointer stands, in display pixels from the top left corner.
struct PointerMoved {
  Double x = 0;
  Double y = 0;
  int shift = 0;
};
/// A button goes down where the pointer stands.
struct PointerPressed {
  int button = kLeftButton;
  int shift = 0;
};
struct PointerReleased {
  int button = kLeftButton;
  int shift = 0;
};
/// Steps away from the player; towards them below 0.
struct WheelTurned {
  int steps = 0;
  int shift = 0;
};
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

using Event = std::variant<PointerMoved, PointerPressed, PointerReleased, WheelTurned, KeyPressed,
                           KeyReleased, TextTyped, CloseAsked, QuitAsked, DisplayChanged>;

}  // namespace stage
