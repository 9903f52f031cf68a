#include "tools/replay/input.h"

#include <stdexcept>
#include <utility>

#include "tools/replay/words.h"

namespace replay {
namespace {

using stage::ScriptedPlatform;

constexpr std::pair<const char*, int> kButtons[] = {
    {"left", stage::kLeftButton}, {"right", stage::kRightButton}, {"middle", stage::kMiddleButton}};
constexpr std::pair<const char*, int> kShifts[] = {{"shift", stage::kShift}, {"ctrl", stage::kCtrl}};

template <class Named>
int BitOf(const Named& all, const std::string& word) {
  for (const auto& [name, bit] : all) {
    if (word == name) return bit;
  }
  return 0;
}

int StepsOf(const std::string& rest) { return stage::CInt(Numbers(rest, 1, 1)[0]); }

}  // namespace

bool Input::Send(ScriptedPlatform& platform, const std::string& verb, const std::string& rest) {
  if (verb == "move") {
    const auto place = Numbers(rest, 2, 2);
    platform.MoveTo(place[0], place[1], shift_);
  } else if (verb == "click") {
    platform.Send(stage::PointerPressed{});
    platform.Send(stage::PointerReleased{});
  } else if (verb == "press") {
    Press(platform, rest);
  } else if (verb == "release") {
    Release(platform);
  } else if (verb == "drag") {
    Drag(platform, rest);
  } else if (verb == "wheel") {
    platform.Send(stage::WheelTurned{StepsOf(rest), shift_});
  } else if (verb == "key") {
    const auto code = Numbers(rest, 1, 2);
    const int shift = stage::CInt(code.size() == 2 ? code[1] : 0);
    platform.Send(stage::KeyPressed{stage::CInt(code[0]), shift});
    platform.Send(stage::KeyReleased{stage::CInt(code[0]), shift});
  } else if (verb == "text") {
    platform.Send(stage::TextTyped{rest});
  } else if (verb == "close") {
    platform.Send(stage::CloseAsked{});
  } else {
    return false;
  }
  return true;
}

void Input::Press(ScriptedPlatform& platform, const std::string& rest) {
  int button = stage::kLeftButton;
  int shift = 0;
  for (const std::string& word : Words(rest)) {
    if (const int named = BitOf(kButtons, word)) {
      button = named;
    } else if (const int bit = BitOf(kShifts, word)) {
      shift |= bit;
    } else {
      throw std::runtime_error("no such button: " + word);
    }
  }
  button_ = button;
  shift_ = shift;
  platform.Send(stage::PointerPressed{button, shift});
}

void Input::Release(ScriptedPlatform& platform) {
  if (button_ == 0) throw std::runtime_error("nothing is pressed");
  platform.Send(stage::PointerReleased{std::exchange(button_, 0), std::exchange(shift_, 0)});
}

void Input::Drag(ScriptedPlatform& platform, const std::string& rest) {
  const auto words = Words(rest);
  const bool button_named = words.size() == 5;
  const auto way = Numbers(button_named ? rest.substr(0, rest.rfind(words.back())) : rest, 4, 4);
  platform.MoveTo(way[0], way[1]);
  Press(platform, button_named ? words.back() : "");
  platform.MoveTo((way[0] + way[2]) / 2, (way[1] + way[3]) / 2);
  platform.MoveTo(way[2], way[3]);
  Release(platform);
}

}  // namespace replay
