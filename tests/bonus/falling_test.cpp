#include <gtest/gtest.h>

#include "tests/bonus/jogada.h"

namespace tests {
namespace {

constexpr int kDrawsTo = 400;
constexpr int kStanding = 6;  // a bonus of before, to see that it is left alone

constexpr Band kBands[] = {{1, 19, 1},    {20, 29, 2},   {30, 79, 3},   {80, 99, 4},
                           {100, 119, 5}, {120, 129, 6}, {151, 151, 8}, {155, 155, 7},
                           {161, 161, 8}, {165, 165, 7}, {175, 175, 7}};

class Falling : public testing::Test {
 protected:
  Falling() { mesa.Quiet(); }

  /// The tick of the draw, with the bonus of before hidden.
  void Draw(const State& state, std::vector<stage::Single> draws) {
    state.To(jogo);
    jogo.BonusCaindo = kStanding;
    jogo.Imgbonus.Visible = false;
    jogo.TimerDescebonus.Enabled = false;
    jogo.VelY = -75;
    Prepare(mesa, std::move(draws));
    jogo.Timer2_Timer();
  }

  std::string PictureName() const {
    const stage::PictureRef picture = jogo.Imgbonus.Picture;
    return picture == nullptr ? "" : std::string(picture->name);
  }

  void ExpectSent(int code) {
    EXPECT_EQ(jogo.BonusCaindo, code);
    EXPECT_TRUE(jogo.Imgbonus.Visible);
    EXPECT_TRUE(jogo.TimerDescebonus.Enabled);
    EXPECT_EQ(PictureName(), "ImagePower" + std::to_string(code));
    EXPECT_EQ(jogo.Imgbonus.Top, -jogo.Imgbonus.Height);
  }

  /// Gives the paddle and the sprite whole sizes and puts the sprite's corner this far from the paddle's.
  void PlaceSprite(Double right, Double down) {
    jogo.User.Left = 5000;
    jogo.User.Top = 8000;
    jogo.User.Width = 1000;
    jogo.User.Height = 280;
    jogo.Imgbonus.Picture = jogo.ImagePower(4).Picture;
    jogo.Imgbonus.Width = 600;
    jogo.Imgbonus.Height = 640;
    jogo.Imgbonus.Left = Single(5000 + right);
    jogo.Imgbonus.Top = Single(8000 + down);
    jogo.Imgbonus.Visible = true;
  }

  QuietMesa mesa;
  game& jogo = mesa.Jogo();
};

TEST_F(Falling, EveryValueOfTheDrawGivesItsCode) {
  for (int n = 1; n <= kDrawsTo; ++n) {
    SCOPED_TRACE(n);
    const int code = CodeOf(kBands, n);
    Draw({}, {ToDraw(n, kDrawsTo), 0.5F});
    if (code == kNone) {
      EXPECT_EQ(jogo.BonusCaindo, kStanding);
      EXPECT_FALSE(jogo.Imgbonus.Visible);
    } else {
      ExpectSent(code);
    }
  }
}

TEST_F(Falling, TheStateOfPlayMakesOfADrawnCode) {
  const Drawn cases[] = {
      {151, {.lives = 5}, 8},
      {151, {.lives = 6}, 7},
      {161, {.lives = 6}, 7},
      {155, {.lives = 6}, 7},
      // From series B on no life is won, nor a large or magnetic paddle.
      {151, {.serie = 1, .lives = 5}, 3},
      {161, {.serie = 3, .lives = 5}, 3},
      {151, {.serie = 1, .lives = 6}, 7},
      {80, {.serie = 1}, kNone},
      {99, {.serie = 3}, kNone},
      {120, {.serie = 1}, kNone},
      {129, {.serie = 2}, kNone},
      {1, {.serie = 1}, 1},
      {29, {.serie = 1}, 2},
      {100, {.serie = 1}, 5},
      {175, {.serie = 3}, 7},
      // Barred as drawn.
      {1, {.barred = 1}, kNone},
      {20, {.barred = 2}, kNone},
      {30, {.barred = 3}, kNone},
      {80, {.barred = 4}, kNone},
      {100, {.barred = 5}, kNone},
      {120, {.barred = 6}, kNone},
      {155, {.barred = 7}, kNone},
      {151, {.barred = 8}, kNone},
      {151, {.lives = 6, .barred = 7}, kNone},
      {151, {.lives = 6, .barred = 8}, 7},
      {151, {.serie = 1, .barred = 3}, kNone},
      {151, {.serie = 1, .barred = 8}, 3},
      {30, {.barred = 4}, 3},
      // The ball's kind and the hard blocks.
      {20, {.ball = 0}, 2},
      {20, {.ball = 1}, 2},
      {20, {.ball = 2}, kNone},
      {20, {.ball = 0, .hard = false}, 1},
      {20, {.ball = 1, .hard = false}, 1},
      {20, {.ball = 2, .hard = false}, kNone},
      {1, {.ball = 1}, 2},
      {1, {.ball = 2}, kNone},
      {1, {.ball = 0, .hard = false}, 1},
      {1, {.ball = 1, .hard = false}, kNone},
      {1, {.ball = 2, .hard = false}, kNone},
      // Barred as made of another: a 1 made of a 2 counts as falling, a 2 made of a 1 does not.
      {20, {.barred = 1, .hard = false}, 1, false},
      {20, {.barred = 1, .ball = 1, .hard = false}, 1, false},
      {20, {.barred = 2, .hard = false}, kNone},
      {1, {.barred = 2, .ball = 1}, kNone},
      {1, {.barred = 1, .ball = 1}, kNone},
      // What the paddle has already.
      {80, {.size = 3}, kNone},
      {80, {.size = 1}, 4},
      {100, {.size = 1}, kNone},
      {100, {.size = 3}, 5},
      {120, {.magnet = true}, kNone},
      {80, {.magnet = true}, 4},
  };
  for (const Drawn& drawn : cases) {
    SCOPED_TRACE(testing::Message() << "n " << drawn.n << ' ' << drawn.state);
    Draw(drawn.state, {ToDraw(drawn.n, kDrawsTo), 0.5F});
    if (drawn.code != kNone && drawn.sent) {
      ExpectSent(drawn.code);
      continue;
    }
    EXPECT_EQ(jogo.BonusCaindo, drawn.code == kNone ? kStanding : drawn.code);
    EXPECT_FALSE(jogo.Imgbonus.Visible);
    EXPECT_FALSE(jogo.TimerDescebonus.Enabled);
  }
}

TEST_F(Falling, NothingIsDrawnBehindAGuard) {
  const std::function<void()> guards[] = {[&] { jogo.BonusExcluido = 10; }, [&] { jogo.paused = true; },
                                          [&] { jogo.BolaPresa = true; }};
  for (const auto& guard : guards) {
    State{}.To(jogo);
    jogo.BonusCaindo = kStanding;
    guard();
    Prepare(mesa, {ToDraw(1, kDrawsTo)});
    jogo.Timer2_Timer();
    EXPECT_EQ(jogo.BonusCaindo, kStanding);
    EXPECT_EQ(mesa.Palco().Draws.Prepared().size(), 1U);
  }
}

TEST_F(Falling, ALostLifeIsAimedWhenTheBallComesDown) {
  constexpr stage::Single kPlace = 0.25F;
  const Double sprite = jogo.ImagePower(3).Width;
  const Double anywhere = stage::Int(Double(kPlace) * (12000 - sprite)) + 1;
  jogo.ball.Left = 2345;
  jogo.User.Left = 6789;
  struct {
    int n;
    Double vely;
    int b;  // 0 when no aim is drawn
    Double left;
  } const cases[] = {{30, 75, 1, 2345},     {30, 75, 2, 6789},      {30, 75, 3, anywhere},
                     {30, 75, 4, anywhere}, {30, 75, 5, anywhere},  {30, -75, 0, anywhere},
                     {30, 0, 0, anywhere},  {100, 75, 0, anywhere}, {151, 75, 0, anywhere}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << "n " << c.n << " VelY " << c.vely << " b " << c.b);
    State{}.To(jogo);
    jogo.VelY = c.vely;
    std::vector<stage::Single> draws{ToDraw(c.n, kDrawsTo)};
    if (c.b != 0) draws.push_back(ToDraw(c.b, 5));
    if (c.left == anywhere) draws.push_back(kPlace);
    Prepare(mesa, draws);
    jogo.Timer2_Timer();
    EXPECT_EQ(jogo.Imgbonus.Left, Single(c.left));
    EXPECT_TRUE(mesa.Palco().Draws.Prepared().empty());
  }
}

TEST_F(Falling, AReleaseTakesTheSpriteFromTheOldBonus) {
  Draw({}, {ToDraw(80, kDrawsTo), 0.5F});
  jogo.Imgbonus.Top = 4000;
  Prepare(mesa, {ToDraw(100, kDrawsTo), 0});
  jogo.Timer2_Timer();
  ExpectSent(5);
  EXPECT_EQ(jogo.Imgbonus.Left, 1);
  EXPECT_EQ(jogo.TamanhoUser, 2);
}

TEST_F(Falling, ThePaddleTakesWhatItTouches) {
  struct {
    Double right;
    Double down;
    bool caught;
  } const cases[] = {{0, 0, true},     {0, -640, true},    {0, -641, false}, {0, 279, true},
                     {0, 280, false},  {1000, 0, true},    {1001, 0, false}, {-600, 0, true},
                     {-601, 0, false}, {1000, -640, true}, {-600, 279, true}};
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.right << ", " << c.down);
    State{}.To(jogo);
    jogo.BonusCaindo = 8;
    PlaceSprite(c.right, c.down);
    jogo.TestaBonus();
    EXPECT_EQ(jogo.Vidas, c.caught ? 4 : 3);
    EXPECT_EQ(jogo.BonusCaindo, c.caught ? -1 : 8);
    EXPECT_EQ(jogo.Imgbonus.Visible, !c.caught);
  }
}

TEST_F(Falling, ACatchAfterTheWorthIsGoneGivesNothing) {
  PlaceSprite(0, 0);
  jogo.BonusCaindo = 7;
  GoToLevel2(jogo);  // there is only one level, so this is level 1 of series B
  EXPECT_TRUE(jogo.Imgbonus.Visible);
  mesa.platform->TakeSounds();
  jogo.TestaBonus();
  EXPECT_FALSE(jogo.Imgbonus.Visible);
  EXPECT_TRUE(mesa.platform->TakeSounds().empty());
  EXPECT_EQ(jogo.FaseAtual, 1);
  EXPECT_EQ(jogo.Serie, 1);
}

TEST_F(Falling, ACaughtSpriteGoesOnUnseenAndGivesItsWorthOnce) {
  Draw({}, {ToDraw(151, kDrawsTo), 0.5F});
  jogo.BolaPresa = true;  // a bonus in the air can be caught with the ball held
  jogo.User.Left = jogo.Imgbonus.Left.Get();
  jogo.Timer2.Enabled = false;
  for (int beat = 0; jogo.Imgbonus.Top <= jogo.statusbar.Top; ++beat) {
    ASSERT_LT(beat, 200);
    mesa.Beats(1);
  }
  EXPECT_EQ(jogo.Vidas, 4);
  EXPECT_FALSE(jogo.Imgbonus.Visible);
  EXPECT_FALSE(jogo.TimerDescebonus.Enabled);
}

TEST_F(Falling, ASpriteThatNobodyCatchesFallsPastThePaddleToTheBar) {
  Draw({}, {ToDraw(151, kDrawsTo), 0});
  // 39 pixels of 15 twips at 0.9 twips a unit make 650 units: 650 and the bar at 9090.9 in steps of 100.
  constexpr int kBeatsToTheBar = 98;
  constexpr int kBeatsToThePaddle = 93;
  mesa.Beats(kBeatsToThePaddle);
  EXPECT_GT(jogo.Imgbonus.Top, jogo.User.Top);
  jogo.paused = true;
  mesa.Beats(10);
  jogo.paused = false;
  mesa.Beats(kBeatsToTheBar - 1 - kBeatsToThePaddle);
  EXPECT_TRUE(jogo.Imgbonus.Visible);
  EXPECT_EQ(jogo.BonusCaindo, 8);
  mesa.Beats(1);
  EXPECT_FALSE(jogo.Imgbonus.Visible);
  EXPECT_EQ(jogo.BonusCaindo, -1);
  EXPECT_FALSE(jogo.TimerDescebonus.Enabled);
  EXPECT_EQ(jogo.Vidas, 3);
}

}  // namespace
}  // namespace tests
