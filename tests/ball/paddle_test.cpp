#include <gtest/gtest.h>

#include "tests/ball/flight.h"

namespace tests {
namespace {

constexpr Double kUnitX = 0.99375;
constexpr Double kUnitY = 0.9;

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
  void PointAt(Double x, Double y) {
    mesa.platform->MoveTo(x * kUnitX, y * kUnitY);
    mesa.Do();
  }
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
    PointAt(place.x, place.y);
    EXPECT_NEAR(jogo.User.Left, place.x, 0.01);
    EXPECT_EQ(jogo.Vidas, 4);
    EXPECT_EQ(jogo.BonusCaindo, -1);
    // A sprite that is worth nothing any more falls on.
    LetBonusFallTo(place.x);
    jogo.BonusCaindo = -1;
    jogo.Imgbonus.Visible = true;
    PointAt(place.x + 1, place.y);
    EXPECT_TRUE(jogo.Imgbonus.Visible);
    jogo.Imgbonus.Visible = false;
  }
}

TEST_F(Paddle, FollowsOverTheFallingBonusAndCatchesIt) {
  LetBonusFallTo(3000);
  jogo.Imgbonus.Top = Single(jogo.User.Top - 300);
  jogo.Imgbonus.Visible = true;
  PointAt(3200, jogo.User.Top - 250);
  EXPECT_NEAR(jogo.User.Left, 3200, 0.01);
  EXPECT_EQ(jogo.Vidas, 4);
  EXPECT_FALSE(jogo.Imgbonus.Visible);
}

TEST_F(Paddle, OverItselfAddsItsOwnTwipsToItsLeftAndTestsNoBonus) {
  const Double left = jogo.User.Left;
  const Double middle = jogo.User.Top + 100;
  LetBonusFallTo(left + 300);
  // The image begins 15 twips left of the box that it lies in.
  mesa.platform->MoveTo(left * kUnitX + 400, middle * kUnitY);
  mesa.Do();
  EXPECT_NEAR(jogo.User.Left, left + 415, 0.01);
  EXPECT_EQ(jogo.Vidas, 3);
  EXPECT_EQ(jogo.BonusCaindo, 8);
  // The image, 981 twips wide from -15 on, ends before the box, 974.9 twips wide.
  const Double now = jogo.User.Left;
  LetBonusFallTo(now + 970);
  mesa.platform->MoveTo(now * kUnitX + 970, middle * kUnitY);
  mesa.Do();
  EXPECT_NEAR(jogo.User.Left, now + 970, 0.01);
  EXPECT_EQ(jogo.Vidas, 3);
}

TEST_F(Paddle, StaysWhereItIsOverTheBallAndItsIndicator) {
  const Double left = jogo.User.Left;
  PointAt(jogo.ball.Left + 100, jogo.ball.Top + 100);
  PointAt(jogo.Imageball(0).Left + 100, jogo.Imageball(0).Top + 100);
  EXPECT_EQ(jogo.User.Left, left);
}

TEST_F(Paddle, KeepsBetweenItsLimits) {
  const struct {
    Double width;
    Double x;
    Double left;
  } cases[] = {{981, 0, 0},           {981, 0.5, 0.5},     {981, 11018.5, 11018.5}, {981, 11019, 11019},
               {981, 11019.5, 11019}, {981, 12070, 11019}, {1962, 10038.5, 10038},  {1962, 500, 500}};
  for (const auto& [width, x, left] : cases) {
    jogo.User.Width = Single(width);
    PointAt(x, 4000);
    EXPECT_NEAR(jogo.User.Left, left, 0.01) << x;
  }
  jogo.Form_MouseMove(0, 0, -20, 4000);
  EXPECT_EQ(jogo.User.Left, 0);
}

TEST_F(Paddle, ThatHasGrownStandsPastItsLimitUntilTheNextMove) {
  PointAt(11019, 4000);
  Integer grow = 4;
  jogo.consedebonus(grow);
  EXPECT_NEAR(jogo.User.Left, 11019, 0.01);
  PointAt(11019, 4001);
  EXPECT_EQ(jogo.User.Left, 10038);
}

}  // namespace
}  // namespace tests
