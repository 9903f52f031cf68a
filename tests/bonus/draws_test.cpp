// The two draws of bonuses: what each drawn value gives, what the state of play makes of it, where a falling
// bonus is aimed.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/mesa.h"

namespace tests {
namespace {

constexpr int kNone = 0;
constexpr int kBefore = 9;  // a code that is never drawn, to see that it is left alone

/// The state of play that the rules of a draw look at. A hard block lets each code stay as drawn.
struct State {
  int serie = 0;
  int lives = 3;
  int barred = 0;
  int ball = 0;
  int size = 2;
  bool hard = true;
  bool magnet = false;
};

/// The code in force after a draw, and whether its picture came onto the field.
struct Outcome {
  int code;
  bool shown = code != kNone;
  bool operator==(const Outcome&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Outcome& outcome) {
  return out << outcome.code << (outcome.shown ? "" : " unseen");
}

/// A drawn code, by its place in the tables of values, and what comes of it.
struct Rule {
  int drawn = 0;
  State state;
  Outcome falling;
  std::optional<Outcome> parked{};  // where it differs
};

/// Values of a draw, both ends included, and the code that they give.
struct Band {
  int from;
  int to;
  int code;
};

constexpr int kFallingValues = 400;
constexpr Band kFalling[] = {{1, 19, 1},    {20, 29, 2},   {30, 79, 3},   {80, 99, 4},
                             {100, 119, 5}, {120, 129, 6}, {155, 155, 7}, {151, 151, 8},
                             {161, 161, 8}, {165, 165, 7}, {175, 175, 7}};
constexpr int kParkedValues = 380;
constexpr Band kParked[] = {{1, 24, 1},    {25, 49, 2},   {50, 79, 3},   {80, 99, 4},   {100, 119, 5},
                            {120, 129, 6}, {131, 133, 7}, {170, 170, 8}, {175, 175, 8}, {180, 180, 8}};

int CodeOf(std::span<const Band> bands, int n) {
  const auto band =
      std::ranges::find_if(bands, [n](const Band& each) { return n >= each.from && n <= each.to; });
  return band == bands.end() ? kNone : band->code;
}

/// What Rnd has to give for the value n of 1 to `of`.
Single ToDraw(int n, int of) { return Single((n - 0.5) / of); }

std::string NameOf(stage::PictureRef picture) { return picture == nullptr ? "" : std::string(picture->name); }

class Draws : public testing::Test {
 protected:
  Draws() { mesa.Palco().Timers().StopAllOf(jogo); }

  void To(const State& state) {
    jogo.Serie = state.serie;
    jogo.Vidas = state.lives;
    jogo.BonusExcluido = state.barred;
    jogo.Module1.BolaAtual = state.ball;
    jogo.TamanhoUser = state.size;
    jogo.TemRigido = state.hard;
    jogo.Magnetico = state.magnet;
    jogo.BolaPresa = false;
    jogo.ball.Top = 7000;
  }

  /// One draw with nothing on the field.
  Outcome Fall(int n, const State& state) {
    To(state);
    jogo.BonusCaindo = kBefore;
    jogo.Imgbonus.Visible = false;
    jogo.TimerDescebonus.Enabled = false;
    Prepared() = {ToDraw(n, kFallingValues), 0.5F};
    jogo.Timer2_Timer();
    const Outcome outcome{jogo.BonusCaindo == kBefore ? kNone : int(jogo.BonusCaindo), jogo.Imgbonus.Visible};
    EXPECT_EQ(jogo.TimerDescebonus.Enabled, outcome.shown);
    if (outcome.shown) {
      EXPECT_EQ(NameOf(jogo.Imgbonus.Picture), "ImagePower" + std::to_string(outcome.code));
      EXPECT_EQ(jogo.Imgbonus.Top, -jogo.Imgbonus.Height);
    }
    return outcome;
  }
  Outcome Park(int n, const State& state) {
    To(state);
    carrier.Visible = false;
    carrier.Picture = nullptr;
    jogo.Module1.TipoBox(2) = 0;
    jogo.BonusParado = kBefore;
    jogo.TimerBonusParado.Interval = 3000;
    Prepared() = {ToDraw(n, kParkedValues), 0.5F, 0.5F};
    jogo.TimerBonusParado_Timer();
    EXPECT_EQ(jogo.TimerBonusParado.Interval, 10000);
    const Outcome outcome{jogo.BonusParado, carrier.Visible};
    EXPECT_EQ(NameOf(carrier.Picture),
              outcome.shown ? "ImageBonusParado" + std::to_string(outcome.code) : "");
    EXPECT_EQ(jogo.Module1.TipoBox(2), outcome.shown ? 100 : 0);
    return outcome;
  }
  std::deque<Single>& Prepared() { return mesa.Palco().Draws.Prepared(); }

  Mesa mesa;
  game& jogo = mesa.Jogo();
  stage::Image& carrier = jogo.Box(2);
};

TEST_F(Draws, EveryValueGivesItsCode) {
  for (int n = 1; n <= kFallingValues; ++n) EXPECT_EQ(Fall(n, {}), Outcome{CodeOf(kFalling, n)}) << n;
  for (int n = 1; n <= kParkedValues; ++n) EXPECT_EQ(Park(n, {}), Outcome{CodeOf(kParked, n)}) << n;
}

TEST(Draw, ComesFromTheClock) {
  std::set<Single> next;
  constexpr int kMoments = 5;
  for (int second = 0; second < kMoments; ++second) {
    for (const bool falling : {false, true}) {
      Mesa mesa(Levels({"600,11000,250,480,5\n"}), {.seconds_of_day = 43200.0 + second});
      game& jogo = mesa.Jogo();
      mesa.Palco().Timers().StopAllOf(jogo);
      jogo.BolaPresa = false;
      if (falling) {
        jogo.Timer2_Timer();
      } else {
        jogo.TimerBonusParado_Timer();
      }
      next.insert(mesa.Palco().Rnd());
    }
  }
  EXPECT_GE(next.size(), std::size_t(kMoments));
}

TEST_F(Draws, TheStateOfPlayMakesOfADrawnCode) {
  const Rule rules[] = {
      {8, {.lives = 5}, {8}},
      {8, {.lives = 6}, {7}},
      {8, {.lives = 7}, {7}},
      {7, {.lives = 6}, {7}},
      // From series B on no life is won, nor a large or magnetic paddle.
      {8, {.serie = 1, .lives = 5}, {3}},
      {8, {.serie = 3, .lives = 5}, {3}},
      {8, {.serie = 1, .lives = 6}, {7}},
      {4, {.serie = 1}, {kNone}},
      {4, {.serie = 3}, {kNone}},
      {6, {.serie = 1}, {kNone}},
      {1, {.serie = 1}, {1}},
      {2, {.serie = 1}, {2}},
      {5, {.serie = 3}, {5}},
      {7, {.serie = 3}, {7}},
      // Barred as it comes to be, not as it was drawn.
      {8, {.lives = 6, .barred = 7}, {kNone}},
      {8, {.lives = 6, .barred = 8}, {7}},
      {8, {.serie = 1, .barred = 3}, {kNone}},
      {8, {.serie = 1, .barred = 8}, {3}},
      {3, {.barred = 4}, {3}},
      // The ball's kind and the hard blocks; a parked 2 is lost where a falling one turns into a 1.
      {2, {.ball = 0}, {2}},
      {2, {.ball = 1}, {2}},
      {2, {.ball = 2}, {kNone}},
      {2, {.ball = 0, .hard = false}, {1}},
      {2, {.ball = 1, .hard = false}, {1}, Outcome{kNone}},
      {2, {.ball = 2, .hard = false}, {kNone}},
      {1, {.ball = 1}, {2}},
      {1, {.ball = 2}, {kNone}},
      {1, {.ball = 0, .hard = false}, {1}},
      {1, {.ball = 1, .hard = false}, {kNone}},
      {1, {.ball = 2, .hard = false}, {kNone}},
      // Barred as made of another: the code is in force and nothing shows, but for a falling 2 made of a 1.
      {2, {.barred = 1, .hard = false}, {1, false}},
      {2, {.barred = 1, .ball = 1, .hard = false}, {1, false}, Outcome{kNone}},
      {2, {.barred = 2, .hard = false}, {kNone}},
      {1, {.barred = 2, .ball = 1}, {kNone}, Outcome{2, false}},
      {1, {.barred = 1, .ball = 1}, {kNone}},
      // What the paddle has already.
      {4, {.size = 3}, {kNone}},
      {4, {.size = 1, .magnet = true}, {4}},
      {5, {.size = 1}, {kNone}},
      {5, {.size = 3}, {5}},
      {6, {.magnet = true}, {kNone}},
  };
  const auto value = [](std::span<const Band> bands, int code) {
    return std::ranges::find(bands, code, &Band::code)->to;
  };
  const auto expect = [&](const Rule& rule) {
    const State& s = rule.state;
    SCOPED_TRACE(testing::Message() << rule.drawn << " series " << s.serie << " lives " << s.lives
                                    << " barred " << s.barred << " ball " << s.ball << " size " << s.size
                                    << " hard " << s.hard << " magnet " << s.magnet);
    EXPECT_EQ(Fall(value(kFalling, rule.drawn), s), rule.falling);
    EXPECT_EQ(Park(value(kParked, rule.drawn), s), rule.parked.value_or(rule.falling));
  };
  for (const Rule& rule : rules) expect(rule);
  for (int code = 1; code <= 8; ++code) expect({code, {.barred = code}, {kNone}});
}

}  // namespace
}  // namespace tests
