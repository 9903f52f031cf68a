// Where bonuses meet what is on the field, and levels that go while a bonus procedure gives way.
#include <gtest/gtest.h>

#include "tests/mesa.h"

namespace tests {
namespace {

/// Two blocks in the upper left of a level in which they blink.
constexpr const char* kTwoBlocks = "pisca,3,600,0,0\n600,480,250,480,3\n600,1000,250,480,3\n";
constexpr Single kParkedThree = 50 / 380.0F;

class Places : public testing::Test {
 protected:
  Places() {
    mesa.Palco().Timers().StopAllOf(jogo);
    jogo.BolaPresa = false;
    jogo.ball.Left = jogo.ball.Top = 5000;
  }

  stage::Image& Carrier() { return jogo.Box(jogo.ProximoBox); }
  std::deque<Single>& Prepared() { return mesa.Palco().Draws.Prepared(); }

  /// Runs the procedure and ends the level at one of the places where it gives way; tells how many came.
  int YieldsUpTo(int last, const std::function<void()>& procedure) {
    int yields = 0;
    stage::Timer& timer = jogo.Timer_Move;
    timer.Tick = [&] {
      mesa.platform->PassTo(stage::kBeat);
      if (++yields != last) return;
      jogo.clearall();
      jogo.loadup(2);
    };
    timer.Enabled = true;
    mesa.platform->PassTo(stage::kBeat);
    procedure();
    timer.Enabled = false;
    return yields;
  }

  Mesa mesa{{{"levels/1.sav", kTwoBlocks}, {"levels/2.sav", kQuietLevel}}};
  game& jogo = mesa.Jogo();
};

TEST_F(Places, ThePaddleTakesAFallingBonusThatItTouches) {
  struct {
    Double right;  // of the sprite's corner from the paddle's
    Double down;
    bool caught;
  } const cases[] = {{0, 0, true},     {0, -640, true},    {0, -641, false}, {0, 279, true},
                     {0, 280, false},  {1000, 0, true},    {1001, 0, false}, {-600, 0, true},
                     {-601, 0, false}, {1000, -640, true}, {-600, 279, true}};
  const auto place = [](stage::Control& control, const stage::Design& design) {
    control.Left = Single(design.left);
    control.Top = Single(design.top);
    control.Width = Single(design.width);
    control.Height = Single(design.height);
  };
  place(jogo.User, {5000, 8000, 1000, 280});
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.right << ", " << c.down);
    place(jogo.Imgbonus, {5000 + c.right, 8000 + c.down, 600, 640});
    jogo.Imgbonus.Visible = true;
    jogo.Vidas = 3;
    jogo.BonusCaindo = 8;
    jogo.TestaBonus();
    EXPECT_EQ(jogo.Vidas, c.caught ? 4 : 3);
    EXPECT_EQ(jogo.BonusCaindo, c.caught ? -1 : 8);
    EXPECT_EQ(jogo.Imgbonus.Visible, !c.caught);
  }
}

// With draws of 0 the candidate stands at 1, 1; the first block or the ball is put around it.
TEST_F(Places, AParkedBonusMayTouchABlockAndNotTheBall) {
  const Double W = jogo.ImageBonusParado(4).Width;
  const Double H = jogo.ImageBonusParado(4).Height;
  const Double bw = jogo.ball.Width;
  const Double bh = jogo.ball.Height;
  constexpr Double kFar = 5000;
  struct {
    const char* what;
    Double left, top;  // of the block of 480 by 250
    Double ball_left, ball_top;
    bool free;
  } const cases[] = {
      {"block inside", 100, 100, kFar, kFar, false},
      {"block touches on the right", 1 + W, 100, kFar, kFar, true},
      {"block laps on the right", W, 100, kFar, kFar, false},
      {"block touches on the left", 1 - 480, 100, kFar, kFar, true},
      {"block laps on the left", 2 - 480, 100, kFar, kFar, false},
      {"block touches below", 100, 1 + H, kFar, kFar, true},
      {"block laps below", 100, H, kFar, kFar, false},
      {"block touches above", 100, 1 - 250, kFar, kFar, true},
      {"block laps above", 100, 2 - 250, kFar, kFar, false},
      {"ball touches on the right", kFar, kFar, 1 + W, 100, false},
      {"ball near on the right", kFar, kFar, 2 + W, 100, true},
      {"ball touches on the left", kFar, kFar, 1 - bw, 100, false},
      {"ball near on the left", kFar, kFar, -bw, 100, true},
      {"ball touches below", kFar, kFar, 100, 1 + H, false},
      {"ball near below", kFar, kFar, 100, 2 + H, true},
      {"ball touches above", kFar, kFar, 100, 1 - bh, false},
      {"ball near above", kFar, kFar, 100, -bh, true},
  };
  jogo.Box(2).Visible = false;
  for (const auto& c : cases) {
    jogo.Box(1).Left = Single(c.left);
    jogo.Box(1).Top = Single(c.top);
    jogo.ball.Left = Single(c.ball_left);
    jogo.ball.Top = Single(c.ball_top);
    Carrier().Visible = false;
    Prepared() = {80 / 380.0F, 0, 0, 0.5F, 0.9F};
    jogo.TimerBonusParado_Timer();
    EXPECT_TRUE(Carrier().Visible) << c.what;
    EXPECT_EQ(Carrier().Top, c.free ? 1 : 3151) << c.what;
  }
}

TEST_F(Places, AHiddenHardBlockWaitsForTheBallToLeave) {
  struct {
    Double right;  // of the ball's corner from the block's
    Double down;
    bool over;
  } const cases[] = {{100, 100, true}, {-200, 0, true},  {-201, 0, false}, {480, 0, true}, {481, 0, false},
                     {0, -240, true},  {0, -241, false}, {0, 250, true},   {0, 251, false}};
  jogo.ball.Width = 200;
  jogo.ball.Height = 240;
  for (const int type : {20, 3}) {
    jogo.TipoPisca = jogo.Module1.TipoBox(1) = type;
    for (const auto& c : cases) {
      SCOPED_TRACE(testing::Message() << "type " << type << " at " << c.right << ", " << c.down);
      jogo.Box(1).Visible = false;
      jogo.EstadoPisca = false;
      jogo.ball.Left = Single(480 + c.right);
      jogo.ball.Top = Single(600 + c.down);
      jogo.TimerPisca_Timer();
      EXPECT_EQ(jogo.Box(1).Visible, type == 3 || !c.over);
    }
  }
}

TEST_F(Places, ALevelThatGoesInAYieldEndsTheTick) {
  struct {
    const char* what;
    int yields;
    std::function<void()> tick;
  } const procedures[] = {
      // Before and behind each of the two blocks.
      {"blinking", 4, [&] { jogo.TimerPisca_Timer(); }},
      // The first place: tried, before and behind the first block, before the second, which takes it. The
      // second place: all of these and behind the second block.
      {"parked", 4 + 5, [&] {
         Prepared() = {kParkedThree, 0.1F, 0.1F, 0.8F, 0.5F};
         jogo.TimerBonusParado_Timer();
       }}};
  for (const auto& procedure : procedures) {
    for (int at = 1; at <= procedure.yields + 1; ++at) {
      SCOPED_TRACE(testing::Message() << procedure.what << ", yield " << at);
      jogo.clearall();
      jogo.loadup(1);
      jogo.TimerPisca.Enabled = false;
      jogo.BolaPresa = false;
      jogo.EstadoPisca = true;
      jogo.ball.Left = jogo.ball.Top = 5000;
      const bool goes = at <= procedure.yields;
      EXPECT_EQ(YieldsUpTo(at, procedure.tick), std::min(at, procedure.yields));
      EXPECT_EQ(jogo.ProximoBox, goes ? 2 : 3);
      if (!goes) continue;
      EXPECT_FALSE(Carrier().Visible);
      EXPECT_EQ(Carrier().Picture.Get(), nullptr);
      EXPECT_TRUE(jogo.Box(1).Visible);
    }
  }
}

}  // namespace
}  // namespace tests
