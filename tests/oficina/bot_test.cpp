#include "oficina/bot/bot.h"

#include <gtest/gtest.h>

#include "oficina/bot/invariants.h"
#include "tests/mesa.h"

namespace tests {
namespace {

/// Hard, unseen and blinking blocks, and one of them alone.
const std::map<std::string, std::string> kLevels{
    {"levels/1.sav",
     "1500,4000,250,1500,20\r\n1500,6000,250,1500,21\r\n3000,2000,250,3000,5\r\n3000,7000,250,3000,3\r\n"},
    {"levels/2.sav",
     "pisca,20,700,7,0\r\n1500,2000,250,3000,20\r\n1500,6000,250,3000,5\r\n3000,3000,250,3000,20\r\n"},
    {"levels/3.sav", "pisca,5,500,0,0\r\n2000,2000,250,3000,5\r\n2000,6000,250,3000,5\r\n"}};

struct Outcome {
  std::string broken;
  std::int64_t levels = 0;
  stage::Double ball = 0;
};

Outcome Soak(std::chrono::minutes time, std::uint32_t seed) {
  Mesa mesa(kLevels);
  game& jogo = mesa.Jogo();
  mesa.Palco().Draws.Fix(seed);
  bot::Bot bot(*mesa.programa, *mesa.platform, seed);
  bot::Invariants invariants;
  Outcome outcome;
  const stage::Moment end = mesa.platform->Now() + time;
  struct Enough {};
  mesa.platform->Director = [&] {
    outcome.broken = invariants.Broken(jogo, mesa.Palco().ActiveForm());
    if (!outcome.broken.empty() || mesa.platform->Now() >= end) throw Enough{};
    bot.Act();
  };
  EXPECT_THROW(mesa.Palco().Run(), Enough);
  outcome.levels = jogo.FasesRetiradas;
  outcome.ball = jogo.ball.Left;
  return outcome;
}

TEST(Bot, PlaysThroughTheLevelsWithoutBreakingAnything) {
  const Outcome outcome = Soak(std::chrono::minutes(20), 7);
  EXPECT_EQ(outcome.broken, "");
  EXPECT_GT(outcome.levels, 20);  // even a poor player clears such a level in a minute
}

TEST(Bot, PlaysTheSameGameFromTheSameSeed) {
  const auto ball = [](std::uint32_t seed) { return Soak(std::chrono::minutes(3), seed).ball; };
  EXPECT_EQ(ball(11), ball(11));
  EXPECT_NE(ball(11), ball(12));
}

TEST(Invariants, TellWhatIsBroken) {
  struct {
    const char* what;
    std::function<void(game&)> damage;
  } const cases[] = {
      {"the ball's kind", [](game& j) { j.Module1.BolaAtual = 3; }},
      {"the paddle's width", [](game& j) { j.TamanhoUser = 3; }},
      {"lives", [](game& j) { j.Vidas = 0; }},
      {"lives", [](game& j) { j.Vidas = 8; }},
      {"the falling bonus", [](game& j) { j.BonusCaindo = 0; }},
      {"a falling sprite without its timer", [](game& j) { j.Imgbonus.Visible = true; }},
      {"blinking", [](game& j) { j.TimerPisca.Enabled = true; }},
      {"the size of the ball's step", [](game& j) { j.VelY = 74; }},
      {"block 0", [](game& j) { j.Box(0).Visible = true; }},
      {"no carrier", [](game& j) { j.Box.Unload(2); }},
      {"the carrier's type", [](game& j) { j.Module1.TipoBox(2) = 5; }},
      {"a missing block", [](game& j) { j.Box.Unload(1); }},
      {"hard blocks", [](game& j) { j.TemRigido = true; }},
      {"a block of another level", [](game& j) { j.Box.Load(3); }},
  };
  for (const auto& c : cases) {
    Mesa mesa;
    EXPECT_EQ(bot::Invariants().Broken(mesa.Jogo(), mesa.Palco().ActiveForm()), "");
    c.damage(mesa.Jogo());
    EXPECT_EQ(bot::Invariants().Broken(mesa.Jogo(), mesa.Palco().ActiveForm()), c.what);
  }
}

}  // namespace
}  // namespace tests
