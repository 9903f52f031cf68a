#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/ball/flight.h"

namespace tests {
namespace {

constexpr float kUp = std::numeric_limits<float>::infinity();
constexpr float kDown = -kUp;

void ExpectFlight(game& jogo, const Flight& expected) {
  const Flight flight = FlightOf(jogo);
  EXPECT_NEAR(flight.left, expected.left, 0.001);
  EXPECT_NEAR(flight.top, expected.top, 0.001);
  EXPECT_EQ(flight.vx, expected.vx);
  EXPECT_EQ(flight.vy, expected.vy);
}

struct WallCase {
  const char* name;
  Flight before;
  Flight after;
  bool hit;
};

TEST(BallStep, WallsTurnTheBallOneAtATimeAndLeaveItOneUnitInside) {
  Mesa mesa;
  game& jogo = mesa.Jogo();
  const auto right = Single(12000 - jogo.ball.Width);
  const Single left = jogo.ball.Width.Get();
  const Single top = jogo.ball.Height.Get();
  const Single past_right = std::nextafter(right, kUp);
  const Single past_left = std::nextafter(left, kDown);
  const Single past_top = std::nextafter(top, kDown);
  const WallCase cases[] = {
      {"on the right wall", {right, 5000, -10, -70}, {11763.585, 4930, -10, -70}, false},
      {"past the right wall", {past_right, 5000, 10, -70}, {11772.585, 5000, -10, -70}, true},
      {"on the left wall", {left, 5000, 10, -70}, {236.415, 4930, 10, -70}, false},
      {"past the left wall", {past_left, 5000, -10, -70}, {227.415, 5000, 10, -70}, true},
      {"on the top wall", {5000, top, 10, 70}, {5010, 320, 10, 70}, false},
      {"past the top wall", {5000, past_top, 10, -70}, {5000, 251, 10, 70}, true},
      {"right before top", {11900, 100, 10, -70}, {11772.585, 100, -10, -70}, true},
      {"left before top", {100, 100, -10, -70}, {227.415, 100, 10, -70}, true},
      {"top after right", {11772.585, 100, -10, -70}, {11772.585, 251, -10, 70}, true},
      {"far out", {-3000, 5000, -10, 0}, {227.415, 5000, 10, 0}, true},
      // There is no wall below, and a wall hides the loss of the ball in its tick.
      {"wall before loss", {11900, 9500, 10, 70}, {11772.585, 9500, -10, 70}, true},
      // Even a ball that moves away from a wall that it has passed is turned.
      {"leaving the wall", {11900, 5000, -10, 70}, {11772.585, 5000, 10, 70}, true},
  };
  for (const WallCase& test : cases) {
    SCOPED_TRACE(test.name);
    test.before.Start(jogo);
    EXPECT_EQ(Tick(mesa), test.hit ? Sounds{"lad.wav"} : Sounds{});
    ExpectFlight(jogo, test.after);
    EXPECT_EQ(jogo.Vidas, 3);
  }
}

TEST(BallStep, EndsWithWhatWaits) {
  Mesa mesa;
  game& jogo = mesa.Jogo();
  Flight{5000, 5000, 10, -70}.Start(jogo);
  mesa.platform->MoveTo(3000 * 0.99375, 3000);
  jogo.MoveBola();
  EXPECT_NEAR(jogo.User.Left, 3000, 0.01);
}

/// A ball of exactly 200 by 250 over a paddle from 5000 to 6000.
class OverPaddle : public testing::Test {
 protected:
  OverPaddle() {
    jogo.ball.Width = 200;
    jogo.ball.Height = 250;
    jogo.User.Left = 5000;
    jogo.User.Width = 1000;
    jogo.User.Top = 8500;
  }
  bool Takes(const Flight& flight) {
    flight.Start(jogo);
    return Tick(mesa) == Sounds{"plat.wav"};
  }
  Mesa mesa;
  game& jogo = mesa.Jogo();
};

TEST_F(OverPaddle, IsTakenOnlyFallingAndUpToTheBoundsThemselves) {
  const struct {
    const char* name;
    Flight flight;
    bool taken;
  } cases[] = {
      {"touching from above", {5400, 8250, 0, 70}, true},
      {"a hair above", {5400, std::nextafter(8250.F, kDown), 0, 70}, false},
      {"past the edge, not yet lost", {5400, 8500, 0, 70}, true},
      {"the slowest fall", {5400, 8250, 0, 0.001}, true},
      {"standing still", {5400, 8250, 0, 0}, false},
      {"rising", {5400, 8400, 0, -70}, false},
      {"half a width short of the left end", {4700, 8250, 0, 70}, true},
      {"more than half a width short", {std::nextafter(4700.F, kDown), 8250, 0, 70}, false},
      {"centre on the right end", {5900, 8250, 0, 70}, true},
      {"centre past the right end", {std::nextafter(5900.F, kUp), 8250, 0, 70}, false},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(Takes(test.flight), test.taken) << test.name;
    EXPECT_EQ(jogo.VelY, test.taken ? -test.flight.vy : test.flight.vy) << test.name;
  }
}

TEST_F(OverPaddle, GivesTheBallAnAngleByWhereItLandsAndNothingElse) {
  const struct {
    Double left;
    Double vx;
  } cases[] = {{5400, 0},   {5399.99, -1}, {5405.5, 0},  {5405.6, 1},  {5650, 45},  {5900, 90},
               {4900, -90}, {4895, -91},   {4700, -126}, {5394.5, -1}, {5394.4, -2}};
  for (const auto& [left, vx] : cases) {
    for (const Double before : {0.0, -90.0, 33.0}) {
      ASSERT_TRUE(Takes({left, 8250, before, 70}));
      EXPECT_EQ(jogo.VelX, vx) << left;
      // The tick goes on with the new step.
      EXPECT_NEAR(jogo.ball.Left, left + vx, 0.001);
      EXPECT_EQ(jogo.ball.Top, 8180);
    }
  }
}

}  // namespace
}  // namespace tests
