#include <gtest/gtest.h>

#include "tests/ball/flight.h"

namespace tests {
namespace {

struct Place {
  const char* over;
  Double x;  // form units
  Double y;
};

constexpr Place kPlaces[] = {
    {"the bare form", 2500, 4000}, {"a block", 3010.5, 700},        {"a life icon", 2000.25, 9600},
    {"the bar", 7000, 9200},       {"the level label", 9000, 9500}, {"the score label", 10800, 9500},
};

class Paddle : public testing::Test {
 protected:
  Paddle() { jogo.BonusCaindo = -1; }
  /// A falling bonus worth a life where the paddle's left edge comes to be.
  void LetBonusFallTo(Double left) {
    jogo.BonusCaindo = 8;
    jogo.Imgbonus.Picture = jogo.ImagePower(8).Picture;
    jogo.Imgbonus.Left = Single(left);
    jogo.Imgbonus.Top = jogo.User.Top;
    jogo.Vidas = 3;
  }
  Mesa mesa{Levels({"600,3000,250,480,5\n"})};
  game& jogo = mesa.Jogo();
};

TEST_F(Paddle, PutsItsLeftEdgeUnderThePointerWhateverLiesThere) {
  for (const Place& place : kPlaces) {
    SCOPED_TRACE(place.over);
    LetBonusFallTo(place.x);
    mesa.PointAt(place.x, place.y);
    EXPECT_NEAR(jogo.User.Left, place.x, 0.01);
    EXPECT_EQ(jogo.Vidas, 4);
    EXPECT_EQ(jogo.BonusCaindo, -1);
    // A sprite that is worth nothing any more falls on.
    LetBonusFallTo(place.x);
    jogo.BonusCaindo = -1;
    jogo.Imgbonus.Visible = true;
    mesa.PointAt(place.x + 1, place.y);
    EXPECT_TRUE(jogo.Imgbonus.Visible);
    jogo.Imgbonus.Visible = false;
  }
}

TEST_F(Paddle, FollowsOverTheFallingBonusAndCatchesIt) {
  LetBonusFallTo(3000);
  jogo.Imgbonus.Top = Single(jogo.User.Top - 300);
  jogo.Imgbonus.Visible = true;
  mesa.PointAt(3200, jogo.User.Top - 250);
  EXPECT_NEAR(jogo.User.Left, 3200, 0.01);
  EXPECT_EQ(jogo.Vidas, 4);
  EXPECT_FALSE(jogo.Imgbonus.Visible);
}

TEST_F(Paddle, OverItselfAddsItsOwnTwipsToItsLeftAndTestsNoBonus) {
  const Double left = jogo.User.Left;
  const Double middle = jogo.User.Top + 100;
  LetBonusFallTo(left + 300);
  // The image begins 15 twips left of the box that it lies in, and has its places in twips.
  mesa.PointAt(left + 400, middle);
  EXPECT_NEAR(jogo.User.Left, left + 15 + 400 * 0.99375, 0.01);
  EXPECT_EQ(jogo.Vidas, 3);
  EXPECT_EQ(jogo.BonusCaindo, 8);
  // The image, 981 twips wide from -15 on, ends before the box, 974.9 twips wide.
  const Double now = jogo.User.Left;
  LetBonusFallTo(now + 970);
  mesa.PointAt(now + 970 / 0.99375, middle);
  EXPECT_NEAR(jogo.User.Left, now + 970, 0.01);
  EXPECT_EQ(jogo.Vidas, 3);
}

TEST_F(Paddle, StopsAtTheEdgeOfTheScreen) {
  jogo.Form_MouseMove(0, 0, -0.5F, 4000);
  EXPECT_EQ(jogo.User.Left, 0);
}

TEST_F(Paddle, StaysWhereItIsOverTheBallAndItsIndicator) {
  const Double left = jogo.User.Left;
  mesa.PointAt(jogo.ball.Left + 100, jogo.ball.Top + 100);
  mesa.PointAt(jogo.Imageball(0).Left + 100, jogo.Imageball(0).Top + 100);
  EXPECT_EQ(jogo.User.Left, left);
}

/// Displays that are sold, and some that are wider or narrower than the screen can be.
constexpr stage::PixelSize kDisplays[] = {
    {800, 600},   {1024, 600},  {1024, 768},  {1280, 720},  {1280, 800},  {1280, 1024}, {1360, 768},
    {1366, 768},  {1440, 900},  {1600, 900},  {1680, 1050}, {1920, 1080}, {1920, 1200}, {2160, 1440},
    {2256, 1504}, {2560, 1080}, {2560, 1440}, {2880, 1800}, {3024, 1964}, {3440, 1440}, {3456, 2234},
    {3840, 1100}, {3840, 1600}, {3840, 2160}, {5120, 1440}, {5120, 2160}, {7680, 4320}, {900, 1440},
    {1080, 1920}, {1000, 1000}, {5760, 1080}, {7680, 1440}};

TEST(PaddleOnAnyDisplay, FollowsThePointerToTheEdgesAndCorners) {
  for (const stage::PixelSize& display : kDisplays) {
    const auto [width, height] = display;
    const stage::ScreenSize screen = stage::ScreenFor(display);
    Mesa mesa({{"levels/1.sav", kQuietLevel}}, {.screen = screen, .display = display});
    game& jogo = mesa.Jogo();
    const Double shown = std::min<Double>(width, height * 32.0 / 9);
    const Double twips_of_a_pixel = screen.Width / shown;
    for (const int x : {0, width / 2, width - 1}) {
      for (const int y : {0, height / 2, height - 1}) {
        SCOPED_TRACE(testing::Message() << width << 'x' << height << " at " << x << ',' << y);
        jogo.BolaPresa = true;
        jogo.User.Left = 3000;
        mesa.platform->MoveToPixel({Double(x), Double(y)});
        mesa.Click();
        mesa.Do();
        const Double place = (x - (width - shown) / 2) * twips_of_a_pixel / jogo.InteriorUnits().x;
        const Double limit = screen.Width - jogo.User.Width;
        EXPECT_NEAR(jogo.User.Left, std::clamp(place, 0.0, limit), twips_of_a_pixel);
        EXPECT_FALSE(jogo.BolaPresa);
      }
    }
  }
}

}  // namespace
}  // namespace tests
