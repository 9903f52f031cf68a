// A whole run, played by a bot with the paddle that every player has.
#include <gtest/gtest.h>

#include "stage/dialogs.h"
#include "tests/mesa.h"
#include "tools/bot.h"

namespace {

using namespace tests;

const std::map<std::string, std::string> kRun{
    {"levels/1.sav", "1500,2000,250,4000,5\n1500,6500,250,4000,21\n3000,3000,250,6000,3\n"},
    {"levels/2.sav", "pisca,5,700,7,0\n1500,4000,250,3000,20\n2500,1000,250,4000,5\n2500,7000,250,4000,5\n"},
    {"levels/3.sav", "pisca,0,500,10,0\n2000,1500,250,9000,20\n"}};

/// The levels as they come, and the message behind them, once a life lost costs nothing.
std::string LevelsOfARun(std::uint32_t seed) {
  Mesa mesa(kRun);
  game& jogo = mesa.Jogo();
  mesa.Palco().Draws.Fix(seed);
  bot::Bot bot(*mesa.programa, *mesa.platform, seed);
  bot.wanders = false;
  std::string seen;
  struct Over {};
  const stage::Moment end = mesa.platform->Now() + std::chrono::hours(4);
  mesa.platform->Director = [&] {
    jogo.Vidas = 3;
    const std::string level = jogo.Label2.Caption.Get().substr(6);
    if (!seen.ends_with(level)) seen += ' ' + level;
    if (const auto* box = dynamic_cast<stage::Dialog*>(mesa.Palco().ActiveForm())) {
      seen += ": " + box->Message();
      throw Over{};
    }
    if (mesa.platform->Now() > end) throw Over{};
    bot.Act();
  };
  EXPECT_THROW(mesa.Palco().Run(), Over);
  return seen;
}

TEST(Run, GoesFromTheFirstLevelThroughAllSeriesToTheMessage) {
  for (const std::uint32_t seed : {3U, 4U}) {
    EXPECT_EQ(LevelsOfARun(seed),
              " A-1 A-2 A-3 B-1 B-2 B-3 C-1 C-2 C-3 D-1 D-2 D-3: Todos os niveis completados");
  }
}

}  // namespace
