// What the player does before there is anything to see but the opening.
#include <gtest/gtest.h>

#include "tests/mesa.h"
#include "tests/sight.h"

namespace tests {
namespace {

/// A machine that is looked at when the program falls asleep.
class Watched : public stage::ScriptedPlatform {
 public:
  using ScriptedPlatform::ScriptedPlatform;
  std::function<void()> AtSleep = [] {};
  bool pointer_shown = true;
  void ShowPointer(bool shown) override { pointer_shown = shown; }
  void Wait(stage::Moment until, stage::Wake wake) override {
    if (wake == stage::Wake::kOnTime) AtSleep();
    ScriptedPlatform::Wait(until, wake);
  }
};

/// The program with these events waiting from its first second on.
class Abertura {
 public:
  explicit Abertura(const std::vector<stage::Event>& early) {
    WriteFile(folder_.Path() / "levels" / "1.sav", kQuietLevel);
    for (const stage::Event& event : early) platform.Send(event);
  }
  /// Runs it up to its first wait for input, or to its end; true if it waits.
  bool WaitsAfterStart() {
    struct Waits {};
    platform.Director = [] { throw Waits{}; };
    try {
      programa.Corre();
      return false;
    } catch (const Waits&) {
      return true;
    }
  }

 private:
  stage::TempFolder folder_;
  stage::sdl::Artist artist_;

 public:
  Watched platform{{.screen = {16000, 9000}, .scale = 1.8, .folder = folder_.Path()}, artist_};
  Programa programa{platform, Assets()};
};

TEST(Opening, IsSeenInTheMiddleForASecond) {
  Abertura abertura({});
  abertura.platform.Look(true);
  const auto start = abertura.platform.Now();
  abertura.platform.AtSleep = [&] {
    Sight sight(abertura.programa.Palco);
    sight.Show("abertura", {(16000 - 4290) / 2.0 + 240, (9000 - 750) / 2.0 + 120, 3690, 585});
    sight.ExpectShown();
  };
  ASSERT_TRUE(abertura.WaitsAfterStart());
  EXPECT_EQ(abertura.platform.Now() - start, std::chrono::seconds(1));
  EXPECT_FALSE(abertura.platform.pointer_shown);
  abertura.programa.Palco.ShowCursor(true);
  EXPECT_TRUE(abertura.platform.pointer_shown);
}

TEST(Opening, KeysAndClicksAreForgottenWithIt) {
  Abertura abertura({stage::KeyPressed{13}, stage::KeyReleased{13}, stage::KeyPressed{32},
                     stage::TextTyped{" "}, stage::PointerMoved{200, 100}, stage::PointerPressed{},
                     stage::PointerPressed{}});
  ASSERT_TRUE(abertura.WaitsAfterStart());
  EXPECT_EQ(abertura.programa.Palco.ActiveForm()->Name(), "FrmHelp");
  const game& jogo = *abertura.programa.game.Last();
  EXPECT_TRUE(jogo.paused);
  EXPECT_TRUE(jogo.BolaPresa);
  EXPECT_FALSE(jogo.timerDefine.Enabled);
}

TEST(Opening, CanBeClosed) {
  for (const stage::Event& early : {stage::Event(stage::CloseAsked{}), stage::Event(stage::QuitAsked{})}) {
    EXPECT_FALSE(Abertura({early}).WaitsAfterStart());
  }
}

}  // namespace
}  // namespace tests
