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

TEST_F(OverPaddle, MeasuresTheAngleFromTheCentreAsAWholeNumber) {
  jogo.User.Width = 981;
  const struct {
    Double left;
    int centre;
  } cases[] = {{5000, 5490}, {5001, 5492}, {5000.25, 5491}, {0, 490}};
  for (const auto& [left, centre] : cases) {
    jogo.User.Left = Single(left);
    EXPECT_EQ(jogo.UserMeio(), centre) << left;
  }
}

TEST_F(OverPaddle, TheMagnetHoldsTheBallWhereItLandedUntilTheLaunch) {
  jogo.Magnetico = true;
  jogo.BatidasRigido = 40;
  Flight{5650, 8250, 7, 70}.Start(jogo);
  EXPECT_EQ(Tick(mesa), Sounds{"magnetico.wav"});
  EXPECT_TRUE(jogo.BolaPresa);
  EXPECT_EQ(jogo.BatidasRigido, 0);
  EXPECT_EQ(jogo.DeslocaBola, 650);
  EXPECT_EQ(jogo.ball.Left, 5695) << "the tick of the catch still moves the ball";
  jogo.User.Left = 3000;
  EXPECT_EQ(Tick(mesa), Sounds{});
  ExpectFlight(jogo, {3650, 8250, 45, -70});
  // The step of the catch is what it flies off with.
  jogo.BolaPresa = false;
  Tick(mesa);
  ExpectFlight(jogo, {3695, 8180, 45, -70});
}

TEST_F(OverPaddle, CaughtExactlyAtThePaddlesLeftItIsHeldInTheMiddle) {
  jogo.Magnetico = true;
  Flight{5000, 8250, 0, 70}.Start(jogo);
  Tick(mesa);
  EXPECT_TRUE(jogo.BolaPresa);
  EXPECT_EQ(jogo.DeslocaBola, 0);
  Tick(mesa);
  EXPECT_EQ(jogo.ball.Left, 5400);
}

TEST_F(OverPaddle, ATickThatCarriesItPastThePaddleBothTakesAndLosesIt) {
  Flight{5650, 8501, 0, 70}.Start(jogo);
  EXPECT_EQ(Tick(mesa), (Sounds{"plat.wav", "end.wav"}));
  EXPECT_EQ(jogo.Vidas, 2);
  EXPECT_TRUE(jogo.BolaPresa);
  EXPECT_EQ(jogo.VelX, 0);
}

TEST_F(OverPaddle, IsLostOnlyBelowThePaddlesTopWhereverAndWhicheverWay) {
  const struct {
    Flight flight;
    bool lost;
  } cases[] = {{{1000, 8500, 5, 70}, false},
               {{1000, std::nextafter(8500.F, kUp), 5, 70}, true},
               {{9000, 8600, 5, -70}, true},
               {{5400, 8600, 5, -70}, true}};
  for (const auto& [flight, lost] : cases) {
    flight.Start(jogo);
    jogo.Vidas = 3;
    Tick(mesa);
    EXPECT_EQ(jogo.Vidas, lost ? 2 : 3) << flight.left << ' ' << flight.top;
  }
}

TEST(BallStep, ALostBallPutsPlayBackToNormal) {
  Mesa mesa;
  game& jogo = mesa.Jogo();
  jogo.Module1.Vkorv = 77;
  jogo.Module1.BolaAtual = 2;
  jogo.ball.Picture = jogo.Imageball(2).Picture;
  jogo.ExibeBolaAtual();
  jogo.BonusCaindo = 4;
  jogo.Imgbonus.Visible = true;
  jogo.Magnetico = true;
  jogo.DeslocaBola = 50;
  jogo.TamanhoUser = 3;
  jogo.User.Width = 1962;
  jogo.Image1.Width = 1962;
  jogo.User.Left = 100;
  Flight{9000, 8600, 40, 300}.Start(jogo);
  EXPECT_EQ(Tick(mesa), Sounds{"end.wav"});
  EXPECT_EQ(jogo.Vidas, 2);
  EXPECT_TRUE(jogo.life(1).Visible && !jogo.life(2).Visible);
  EXPECT_EQ(jogo.Module1.BolaAtual, 0);
  EXPECT_EQ(jogo.ball.Picture.Get(), jogo.Imageball(0).Picture.Get());
  EXPECT_TRUE(jogo.Imageball(0).Visible && !jogo.Imageball(2).Visible);
  EXPECT_EQ(jogo.BonusCaindo, -1);
  EXPECT_TRUE(jogo.Imgbonus.Visible) << "the sprite goes on falling";
  EXPECT_FALSE(jogo.Magnetico);
  EXPECT_EQ(jogo.User.Left, 5019) << "centred with the width that it had";
  EXPECT_EQ(jogo.User.Width, 981);
  EXPECT_EQ(jogo.Image1.Width, 981);
  EXPECT_EQ(jogo.TamanhoUser, 2);
  EXPECT_EQ(jogo.DeslocaBola, 0);
  EXPECT_TRUE(jogo.BolaPresa);
  EXPECT_TRUE(jogo.ball.Visible);
  ExpectFlight(jogo, {5132.2075, 8524.912, 0, -77});
}

TEST(BallStep, TheLastLifeEndsTheGameAndLeavesThePaddleWhereItIs) {
  Mesa mesa;
  game& jogo = mesa.Jogo();
  jogo.Vidas = 1;
  jogo.Module1.Pontos = 35;
  jogo.User.Left = 100;
  jogo.DeslocaBola = 50;
  int screens = 0;
  mesa.platform->Director = [&] {
    if (++screens == 1) {
      EXPECT_EQ(jogo.Vidas, 0);
      EXPECT_FALSE(jogo.life(1).Visible);
      EXPECT_FALSE(jogo.ball.Visible);
      EXPECT_TRUE(jogo.paused);
      EXPECT_EQ(jogo.User.Left, 100);
    }
    mesa.Press(stage::key::kEsc);
  };
  Flight{9000, 8600, 40, 300}.Start(jogo);
  Tick(mesa);
  EXPECT_GE(screens, 1);
  EXPECT_EQ(jogo.Vidas, 3);
  EXPECT_EQ(jogo.Module1.Pontos, 0);
  EXPECT_EQ(jogo.User.Left, 100);
  EXPECT_EQ(jogo.DeslocaBola, 50) << "only a ball lost with lives left forgets the offset";
  EXPECT_FALSE(jogo.ball.Visible) << "until the next tick of the held ball";
  Tick(mesa);
  EXPECT_TRUE(jogo.ball.Visible);
  EXPECT_EQ(jogo.ball.Left, 150);
}

TEST(BallStep, StandsWhilePausedAndRidesThePaddleWhileHeld) {
  Mesa mesa;
  game& jogo = mesa.Jogo();
  Tick(mesa);
  ExpectFlight(jogo, {5886.7925, 8274.912, 0, -300});
  jogo.User.Left = 1000;
  jogo.paused = true;
  Tick(mesa);
  ExpectFlight(jogo, {5886.7925, 8274.912, 0, -300});
  jogo.paused = false;
  Tick(mesa);
  // The centre of 1000 and 981 is 1490.5, to the even whole number 1490.
  ExpectFlight(jogo, {1376.7925, 8274.912, 0, -300});
  Flight{5000, 5000, 10, 70}.Start(jogo);
  jogo.paused = true;
  Tick(mesa);
  ExpectFlight(jogo, {5000, 5000, 10, 70});
}

TEST(BallStep, BothTimersStepItWhileTheFirstIsOn) {
  Mesa mesa;
  game& jogo = mesa.Jogo();
  Flight{5000, 5000, 1, 10}.Start(jogo);
  jogo.Timer_Move_Timer();
  jogo.Timer_Move2_Timer();
  ExpectFlight(jogo, {5002, 5020, 1, 10});
  jogo.Timer_Move.Enabled = false;
  jogo.Timer_Move2_Timer();
  ExpectFlight(jogo, {5002, 5020, 1, 10});
  // A beat of 1/64 s is long enough for both.
  jogo.Timer_Move.Enabled = true;
  mesa.Beats(1);
  ExpectFlight(jogo, {5004, 5040, 1, 10});
}

TEST(BallStep, TheLevelEndsByTypesNotByWhatIsSeen) {
  const struct {
    const char* name;
    int first;
    int second;
    bool visible;
    bool cleared;
  } cases[] = {{"gone", 0, 0, false, true},
               {"gone but still seen", 0, 0, true, true},
               {"the first still stands", 5, 0, true, false},
               {"the last still stands, hidden", 0, 5, false, false},
               {"a hard one is left", 0, 20, true, false}};
  const std::string level = "600,11000,250,480,5\n900,11000,250,480,5\n";
  for (const auto& test : cases) {
    Mesa mesa(Levels({level, level}));
    game& jogo = mesa.Jogo();
    jogo.Module1.TipoBox(1) = test.first;
    jogo.Module1.TipoBox(2) = test.second;
    jogo.Box(1).Visible = test.visible;
    jogo.Box(2).Visible = test.visible;
    Flight{3000, 5000, 10, -70}.Start(jogo);
    Tick(mesa);
    EXPECT_EQ(jogo.FaseAtual, test.cleared ? 2 : 1) << test.name;
    EXPECT_EQ(jogo.BolaPresa, test.cleared) << test.name;
    EXPECT_EQ(jogo.ball.Top, test.cleared ? Double(jogo.User.Top) : 4930.0) << test.name;
  }
}

TEST(BallStep, ALossInTheTickOfTheLastBlockComesFirstAndTheNextLaunchEndsTheLevel) {
  Mesa mesa(Levels({"8600,3000,250,480,5\n", kQuietLevel}));
  game& jogo = mesa.Jogo();
  Flight{3100, 8700, 0, 70}.Start(jogo);
  EXPECT_EQ(Tick(mesa), (Sounds{"bloc.wav", "end.wav"}));
  EXPECT_EQ(jogo.FaseAtual, 1);
  Tick(mesa);
  jogo.BolaPresa = false;
  Tick(mesa);
  EXPECT_EQ(jogo.FaseAtual, 2);
  EXPECT_EQ(jogo.Vidas, 2);
}

TEST(BallStep, WithNoLevelStandingTheLaunchLooksForTheNext) {
  Mesa mesa;
  game& jogo = mesa.Jogo();
  jogo.clearall();
  ASSERT_FALSE(jogo.Box.Exists(1));
  Tick(mesa);
  jogo.BolaPresa = false;
  EXPECT_EQ(Tick(mesa), Sounds{});
  EXPECT_EQ(jogo.Label2.Caption.Get(), "Tela: B-1");
  EXPECT_TRUE(jogo.BolaPresa);
}

}  // namespace
}  // namespace tests
