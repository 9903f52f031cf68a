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

TEST_F(Paddle, StaysWhereItIsOverTheBallAndItsIndicator) {
  const Double left = jogo.User.Left;
  mesa.PointAt(jogo.ball.Left + 100, jogo.ball.Top + 100);
  mesa.PointAt(jogo.Imageball(0).Left + 100, jogo.Imageball(0).Top + 100);
  EXPECT_EQ(jogo.User.Left, left);
}

}  // namespace
}  // namespace tests
