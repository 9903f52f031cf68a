// What a player does, as lines of a script:
//
//   move X Y                       the pointer goes there, in twips of the screen
//   click                          the main button goes down
//   press [BUTTON] [shift] [ctrl]  left (default), right or middle; the words hold until the release
//   release                        whatever was pressed comes up
//   drag X1 Y1 X2 Y2 [BUTTON]      press at the first place, release at the second
//   wheel N                        steps away from the player, or towards them
//   key CODE [SHIFT]               down and up
//   text WORDS                     characters typed
//   close                          the system closes the form
#pragma once

#include <string>

#include "stage/machines/scripted/scripted_platform.h"

namespace replay {

class Input {
 public:
  /// Sends what a line tells; false if it tells of no input. Raises std::runtime_error.
  bool Send(stage::ScriptedPlatform& platform, const std::string& verb, const std::string& rest);

 private:
  void Press(stage::ScriptedPlatform& platform, const std::string& rest);
  void Release(stage::ScriptedPlatform& platform);
  void Drag(stage::ScriptedPlatform& platform, const std::string& rest);

  int button_ = 0;
  int shift_ = 0;
};

}  // namespace replay
