// The real program on a Wayland compositor, without an X server that it could see, played with the real
// pointer and keys and watched from outside.
#include <gtest/gtest.h>

#include <csignal>

#include "tests/player.h"
#include "tests/window/compositor.h"
#include "tests/window/oficina_window.h"

namespace tests {
namespace {

/// By the number of pixels to a point.
class WaylandWindow : public Window, public testing::WithParamInterface<const char*> {
 protected:
  void SetUp() override {
    ASSERT_EQ(compositor_.Complaint(), "");
    desktop_.TakeLayout("us", "intl");
  }

  Compositor compositor_{desktop_, GetParam(), "us", "intl"};
};

INSTANTIATE_TEST_SUITE_P(Scale, WaylandWindow, testing::Values("1", "1.5", "2"));

TEST_P(WaylandWindow, IsPlayedLikeOneOnX) {
  Process game = StartIn(compositor_.Environment());
  CloseHelp();
  for (const int x : {200, 555, 300}) {
    desktop_.Hand("mousemove " + std::to_string(x) + " 300");
    EXPECT_TRUE(Eventually([&] { return std::abs(Paddle() - x) <= 2 && std::abs(Ball().x - (x + 32)) <= 2; }))
        << "pointer at " << x;
  }
  // The pointer strays while the game pauses, and is put back.
  Key("p");
  ASSERT_TRUE(Eventually([&] { return PauseIsUp(); }));
  compositor_.Do("seat - cursor move 100 -30");
  Key("p");
  ASSERT_TRUE(Eventually([&] { return !PauseIsUp(); }));
  EXPECT_NEAR(Paddle(), 300, 2);
  constexpr int kPoints = 40;
  compositor_.Do("seat - cursor move " + std::to_string(kPoints) + " 0");
  const int there = 300 + static_cast<int>(kPoints * std::stod(GetParam()));
  EXPECT_TRUE(Eventually([&] { return std::abs(Paddle() - there) <= 2; })) << Paddle() << " for " << there;
  LoseGame([&] { return NameEntryIsUp(); });
  desktop_.Hand("type Jos");
  desktop_.Hand("key dead_acute key e key Return");
  EXPECT_TRUE(Eventually([&] { return Content("kv_his.dat").starts_with("\"Jos\xE9\"\r\n"); }));
  EXPECT_TRUE(Eventually([&] { return Seen(250, 150, 700, 260, IsYellow) > 50; }));
  Key("Escape");
  EXPECT_TRUE(Eventually([&] { return FieldIsUp(); }));
  compositor_.Do("kill");
  EXPECT_EQ(game.WaitForEnd(), 0);
  EXPECT_EQ(Content("errors"), "");
}

class WaylandOficina : public OficinaWindow {
 protected:
  void SetUp() override { ASSERT_EQ(compositor_.Complaint(), ""); }

  Compositor compositor_{desktop_, "1.5"};
};

TEST_F(WaylandOficina, IsDrawnInLikeOneOnX) {
  Process oficina = Start(compositor_.Environment());
  DrawAndSave(oficina);
}

class WaylandPicture : public AnyWindow {
 protected:
  void SetUp() override { ASSERT_EQ(compositor_.Complaint(), ""); }

  Desktop desktop_{1920, 1080};
  Compositor compositor_{desktop_, "2"};
};

/// How many pixels of the display are not as the program means them.
int Strays(const Screenshot& seen, Mesa& twin) {
  twin.Palco().Repaint();
  const stage::Framebuffer meant = twin.platform->Canvas().value();
  int strays = 0;
  for (int y = 0; y < seen.height; ++y) {
    for (int x = 0; x < seen.width; ++x) {
      const stage::Pixel pixel = meant.Row(y)[x];
      const Colour colour{int(pixel >> 16 & 255U), int(pixel >> 8 & 255U), int(pixel & 255U)};
      strays += seen.At(x, y) == colour ? 0 : 1;
    }
  }
  return strays;
}

TEST_F(WaylandPicture, HasTheDisplaysOwnPixels) {
  Mesa twin({{"levels/1.sav", Content("levels/1.sav")}}, {.screen = {16000, 9000}, .scale = 1.8});
  twin.platform->Look(true);
  twin.Beats(1);
  Process game = StartIn(compositor_.Environment());
  ASSERT_TRUE(Eventually([&] { return desktop_.Look().Find(0, 200, 1920, 900, IsCyan).count > 1000; }));
  int strays = -1;
  const Move look = [&] {
    strays = Strays(desktop_.Look(), twin);
    twin.Press(27);
  };
  twin.Press(112);
  Play(twin, {look}, [&] { twin.Do(); });
  EXPECT_EQ(strays, 0) << "the help";
  desktop_.Hand("key F1");
  EXPECT_TRUE(Eventually([&] { return Strays(desktop_.Look(), twin) == 0; })) << "the field";
}

TEST_F(WaylandPicture, ThatGoesAwayEndsTheGameInOrder) {
  Process game = StartIn(compositor_.Environment());
  ASSERT_TRUE(Eventually([&] { return desktop_.Look().Find(0, 200, 1920, 900, IsCyan).count > 1000; }));
  const std::string records = Content("kv_his.dat");
  compositor_.Signal(SIGKILL);
  EXPECT_EQ(game.WaitForEnd(), 1);
  EXPECT_EQ(LinesSaid(), 1) << Content("errors");
  EXPECT_EQ(Content("kv_his.dat"), records);
}

}  // namespace
}  // namespace tests
