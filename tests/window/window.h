// The game on a display, as a test sees it and plays it. Nothing here goes by time: each step waits for what
// is to be seen or read.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/window/desktop.h"
#include "tools/files.h"

namespace tests {

inline bool IsWhite(const Colour& colour) { return colour[0] > 200 && colour[1] > 200 && colour[2] > 200; }
inline bool IsLit(const Colour& colour) { return colour[0] + colour[1] + colour[2] > 90; }
inline bool IsYellow(const Colour& colour) { return colour[0] > 200 && colour[1] > 200 && colour[2] < 60; }
inline bool IsPaleYellow(const Colour& colour) {
  return colour[0] > 240 && colour[1] > 240 && colour[2] > 150 && colour[2] < 230;
}
inline bool IsFrame(const Colour& colour) { return colour == Colour{0xB9, 0xC2, 0xD6}; }
inline bool IsCyan(const Colour& colour) { return colour[0] < 170 && colour[1] > 200 && colour[2] > 200; }

/// The game in a folder of its own.
class AnyWindow : public testing::Test {
 protected:
  AnyWindow() {
    std::filesystem::copy(stage::machine::OwnFolder() / "korvane", folder_.Path() / "korvane");
    LayLevel("600,400,250,480,1\n2000,5000,250,2000,5\n");
  }

  /// A level without bonuses; a block that no ball reaches keeps it from coming to its end.
  void LayLevel(const std::string& blocks) const {
    tools::WriteFile(folder_.Path() / "levels" / "1.sav",
                     "pisca,0,500,10,0\n-2000,5000,250,480,5\n" + blocks);
  }
  Process StartIn(std::vector<std::string> environment, const std::vector<std::string>& more = {}) const {
    environment.insert(environment.end(), more.begin(), more.end());
    return Process({Program()}, environment, folder_.Path() / "errors");
  }
  std::string Program() const { return (folder_.Path() / "korvane").string(); }
  std::string Content(const char* name) const { return tools::ReadFile(folder_.Path() / name); }
  std::ptrdiff_t LinesSaid() const {
    const std::string errors = Content("errors");
    return std::count(errors.begin(), errors.end(), '\n');
  }

  stage::TempFolder folder_;
};

/// The game on a display of 800 x 600. All places are in its pixels.
class Window : public AnyWindow {
 protected:
  static constexpr int kPaddleLine = 512;
  static constexpr int kUnderBlocks = 250;

  Process Start(const std::vector<std::string>& environment = {}) const {
    return StartIn(desktop_.Environment(), environment);
  }
  int Seen(int left, int top, int right, int bottom, bool (*fits)(const Colour&)) const {
    return desktop_.Look().Find(left, top, right, bottom, fits).count;
  }
  bool SomethingIsUp() const { return Seen(0, 0, 800, 600, IsLit) > 500; }
  /// The bar under the field is up, so the play form is seen.
  bool FieldIsUp() const { return Seen(400, 540, 401, 565, IsLit) > 5; }
  bool HelpIsUp() const { return !FieldIsUp() && Seen(240, 130, 620, 520, IsCyan) > 300; }
  bool TableIsUp() const { return !FieldIsUp() && Seen(540, 160, 600, 515, IsLit) > 20; }
  /// The left side of the field to type into.
  bool NameEntryIsUp() const { return Seen(245, 347, 251, 384, IsLit) > 30; }
  bool BoxIsUp() const { return Seen(230, 210, 570, 390, IsFrame) > 400; }
  bool PauseIsUp() const { return FieldIsUp() && Seen(330, 280, 470, 320, IsPaleYellow) > 300; }
  bool LifeIsUp(int number) const {
    return Seen(126 * number - 110, 570, 126 * number - 20, 592, IsLit) > 100;
  }
  Screenshot::Found Ball() const { return desktop_.Look().Find(0, kUnderBlocks, 800, kPaddleLine, IsWhite); }
  int Paddle() const { return desktop_.Look().Find(0, kPaddleLine, 800, kPaddleLine + 15, IsLit).left; }

  void Key(const std::string& name) const { desktop_.Hand("key " + name); }
  void CloseHelp() const {
    ASSERT_TRUE(Eventually([&] { return HelpIsUp(); }));
    Key("F1");
    ASSERT_TRUE(Eventually([&] { return FieldIsUp(); }));
  }
  /// The paddle keeps away from the ball until it is lost, which is seen by what `lost` tells.
  void Lose(const std::function<bool()>& lost) const {
    ASSERT_TRUE(Eventually([&] {
      if (lost()) return true;
      const auto ball = Ball();
      if (ball.count > 0) desktop_.Hand(ball.x < 400 ? "mousemove 790 300" : "mousemove 5 300");
      return false;
    }));
  }
  void Launch() const {
    desktop_.Hand("mousemove 5 300");
    ASSERT_TRUE(Eventually([&] { return Paddle() < 10 && Ball().count > 0 && Ball().x < 60; }));
    desktop_.Hand("click 1");
    ASSERT_TRUE(Eventually([&] { return Ball().y < kPaddleLine - 50; }));
  }
  void LoseLife(int number) const {
    Lose([&] { return !LifeIsUp(number); });
  }
  void LoseGame(const std::function<bool()>& over) const {
    for (const int life : {2, 1}) {
      Launch();
      LoseLife(life);
    }
    Launch();
    Lose(over);
  }
  void Leave(Process& game) const {
    Key("Escape");
    EXPECT_TRUE(Eventually([&] { return TableIsUp(); }));
    Key("Escape");
    EXPECT_EQ(game.WaitForEnd(), 0);
  }

  Desktop desktop_{800, 600};
};

}  // namespace tests
