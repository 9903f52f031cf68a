#include <gtest/gtest.h>

#include "tests/bonus/jogada.h"

namespace tests {
namespace {

constexpr int kDrawsTo = 380;
constexpr Band kBands[] = {{1, 24, 1},    {25, 49, 2},   {50, 79, 3},   {80, 99, 4},   {100, 119, 5},
                           {120, 129, 6}, {131, 133, 7}, {170, 170, 8}, {175, 175, 8}, {180, 180, 8}};

/// Two blocks in the upper left of the field.
constexpr const char* kTwoBlocks = "600,480,250,480,3\r\n600,1000,250,480,4\r\n";

class Parked : public testing::Test {
 protected:
  Parked() { mesa.Quiet(); }

  stage::Image& Carrier() { return jogo.Box(jogo.ProximoBox); }
  std::string PictureName() {
    const stage::PictureRef picture = Carrier().Picture;
    return picture == nullptr ? "" : std::string(picture->name);
  }

  /// The tick of the draw, with nothing on the field in its way.
  void Draw(const State& state, std::vector<stage::Single> draws) {
    state.To(jogo);
    Carrier().Visible = false;
    Carrier().Picture = nullptr;
    jogo.Module1.TipoBox(jogo.ProximoBox) = 0;
    jogo.BonusParado = 6;
    jogo.TimerBonusParado.Interval = 3000;
    Prepare(mesa, std::move(draws));
    jogo.TimerBonusParado_Timer();
  }

  void Expect(int code, bool stands) {
    EXPECT_EQ(jogo.BonusParado, code);
    EXPECT_EQ(Carrier().Visible, stands);
    EXPECT_EQ(jogo.Module1.TipoBox(jogo.ProximoBox), stands ? 100 : 0);
    EXPECT_EQ(PictureName(), stands ? "ImageBonusParado" + std::to_string(code) : "");
    EXPECT_EQ(jogo.TimerBonusParado.Interval, 10000);
  }

  QuietMesa mesa{{{"levels/1.sav", kTwoBlocks}, {"levels/2.sav", kQuietLevel}}};
  game& jogo = mesa.Jogo();
};

TEST_F(Parked, EveryValueOfTheDrawGivesItsCode) {
  for (int n = 1; n <= kDrawsTo; ++n) {
    SCOPED_TRACE(n);
    const int code = CodeOf(kBands, n);
    Draw({}, {ToDraw(n, kDrawsTo), 0.5F, 0.5F});
    Expect(code, code != kNone);
  }
}

TEST_F(Parked, TheStateOfPlayMakesOfADrawnCode) {
  const Drawn cases[] = {
      {170, {.lives = 5}, 8},
      {170, {.lives = 6}, 7},
      {180, {.lives = 7}, 7},
      // From series B on no life is won, nor a large or magnetic paddle.
      {170, {.serie = 1, .lives = 5}, 3},
      {175, {.serie = 2, .lives = 6}, 7},
      {80, {.serie = 1}, kNone},
      {129, {.serie = 3}, kNone},
      {119, {.serie = 3}, 5},
      // Barred as drawn.
      {24, {.barred = 1}, kNone},
      {25, {.barred = 2}, kNone},
      {50, {.barred = 3}, kNone},
      {80, {.barred = 4}, kNone},
      {100, {.barred = 5}, kNone},
      {120, {.barred = 6}, kNone},
      {132, {.barred = 7}, kNone},
      {170, {.barred = 8}, kNone},
      {170, {.serie = 1, .barred = 3}, kNone},
      {170, {.serie = 1, .barred = 8}, 3},
      // The ball's kind and the hard blocks; unlike a falling one, a drawn 2 is lost on a ball of kind 1.
      {25, {.ball = 0}, 2},
      {25, {.ball = 1}, 2},
      {25, {.ball = 2}, kNone},
      {25, {.ball = 0, .hard = false}, 1},
      {25, {.ball = 1, .hard = false}, kNone},
      {25, {.ball = 2, .hard = false}, kNone},
      {24, {.ball = 1}, 2},
      {24, {.ball = 2}, kNone},
      {24, {.ball = 0, .hard = false}, 1},
      {24, {.ball = 1, .hard = false}, kNone},
      {24, {.ball = 2, .hard = false}, kNone},
      // Barred as made of another: the code is kept and nothing shows.
      {25, {.barred = 1, .hard = false}, 1, false},
      {24, {.barred = 2, .ball = 1}, 2, false},
      {25, {.barred = 2, .hard = false}, kNone},
      {24, {.barred = 1, .ball = 1}, kNone},
      // What the paddle has already.
      {80, {.size = 3}, kNone},
      {80, {.size = 1}, 4},
      {100, {.size = 1}, kNone},
      {100, {.size = 3}, 5},
      {120, {.magnet = true}, kNone},
  };
  for (const Drawn& drawn : cases) {
    SCOPED_TRACE(testing::Message() << "n " << drawn.n << ' ' << drawn.state);
    Draw(drawn.state, {ToDraw(drawn.n, kDrawsTo), 0.5F, 0.5F});
    Expect(drawn.code, drawn.sent && drawn.code != kNone);
  }
}

TEST_F(Parked, TheOldOneGoesBeforeTheGuards) {
  struct {
    bool barred;
    bool paused;
    bool held;
    bool standing;
    int interval;  // 0: as it was
    int code;
    bool stays;
  } const cases[] = {
      {true, false, false, true, 0, 5, true},       {true, false, false, false, 0, 5, false},
      {false, false, false, true, 3000, 0, false},  {false, true, false, true, 3000, 0, false},
      {false, false, true, true, 3000, 0, false},   {false, true, false, false, 10000, 0, false},
      {false, false, true, false, 10000, 0, false},
  };
  for (const auto& c : cases) {
    State{.barred = c.barred ? 10 : 0}.To(jogo);
    jogo.paused = c.paused;
    jogo.BolaPresa = c.held;
    Carrier().Visible = c.standing;
    jogo.BonusParado = 5;
    jogo.TimerBonusParado.Interval = 4321;
    Prepare(mesa, {ToDraw(1, kDrawsTo)});
    jogo.TimerBonusParado_Timer();
    EXPECT_EQ(Carrier().Visible, c.stays);
    EXPECT_EQ(jogo.BonusParado, c.code);
    EXPECT_EQ(jogo.TimerBonusParado.Interval, c.interval == 0 ? 4321 : c.interval);
    EXPECT_EQ(mesa.Palco().Draws.Prepared().size(), 1U) << "nothing is drawn";
  }
}

// With draws of 0 the candidate stands at 1, 1; the first block or the ball is put around it.
TEST_F(Parked, TouchingABlockIsFreeAndTouchingTheBallIsNot) {
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
      {"ball inside", kFar, kFar, 100, 100, false},
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
    SCOPED_TRACE(c.what);
    jogo.Box(1).Left = Single(c.left);
    jogo.Box(1).Top = Single(c.top);
    jogo.ball.Left = Single(c.ball_left);
    jogo.ball.Top = Single(c.ball_top);
    Draw({}, {ToDraw(80, kDrawsTo), 0, 0, 0.5F, 0.9F});
    EXPECT_TRUE(Carrier().Visible);
    EXPECT_EQ(Carrier().Top, c.free ? 1 : 3151);
    EXPECT_EQ(mesa.Palco().Draws.Prepared().size(), c.free ? 2U : 0U);
  }
}

TEST_F(Parked, ThreePlacesAreTried) {
  for (int failing = 0; failing <= 3; ++failing) {
    SCOPED_TRACE(failing);
    std::vector<stage::Single> draws{ToDraw(50, kDrawsTo)};
    for (int i = 0; i < failing; ++i) draws.insert(draws.end(), {0.1F, 0.1F});  // on the second block
    draws.insert(draws.end(), {0.8F, 0.5F});
    Draw({}, draws);
    EXPECT_EQ(Carrier().Visible, failing < 3);
    EXPECT_EQ(jogo.BonusParado, failing < 3 ? 3 : 0);
    EXPECT_EQ(PictureName(), "ImageBonusParado3");
    EXPECT_EQ(mesa.Palco().Draws.Prepared().size(), failing < 3 ? 0U : 2U);
    EXPECT_EQ(jogo.TimerBonusParado.Interval, 10000);
  }
}

TEST_F(Parked, WithoutAClosingElementTheTickDoesNothing) {
  State{}.To(jogo);
  jogo.clearall();
  jogo.BolaPresa = false;
  jogo.BonusParado = 5;
  jogo.TimerBonusParado.Interval = 4321;
  jogo.TimerBonusParado_Timer();
  EXPECT_EQ(jogo.BonusParado, 5);
  EXPECT_EQ(jogo.TimerBonusParado.Interval, 4321);
}

/// A first place that the second block takes, then a free one.
const std::vector<stage::Single> kSecondPlace{ToDraw(50, kDrawsTo), 0.1F, 0.1F, 0.8F, 0.5F};
// A place tried, the first block, behind its tests, the second block; then all of it, and behind the second.
constexpr int kYieldsToSecondPlace = 4 + 5;

TEST_F(Parked, ALevelThatGoesInAYieldEndsTheTick) {
  for (int at = 1; at <= kYieldsToSecondPlace; ++at) {
    SCOPED_TRACE(at);
    jogo.clearall();
    jogo.loadup(1);
    int yields = 0;
    mesa.Yielding([&] { Draw({}, kSecondPlace); },
                  [&](int yield) {
                    yields = yield;
                    if (yield == at) GoToLevel2(jogo);
                  });
    EXPECT_EQ(yields, at);
    EXPECT_EQ(jogo.ProximoBox, 2);
    EXPECT_FALSE(Carrier().Visible);
    EXPECT_EQ(jogo.Module1.TipoBox(2), 100);
    EXPECT_EQ(PictureName(), "");
    EXPECT_TRUE(jogo.Box(1).Visible);
  }
}

TEST_F(Parked, ABallThatEndsTheLevelInAYieldEndsTheTick) {
  State{}.To(jogo);
  jogo.Module1.TipoBox(1) = jogo.Module1.TipoBox(2) = 0;
  jogo.ball.Left = jogo.ball.Top = 5000;
  Prepare(mesa, kSecondPlace);
  jogo.Timer_Move.Enabled = true;
  mesa.platform->PassTo(2 * stage::kBeat);
  jogo.TimerBonusParado_Timer();
  EXPECT_EQ(jogo.FaseAtual, 2);
  EXPECT_FALSE(Carrier().Visible);
}

}  // namespace
}  // namespace tests
