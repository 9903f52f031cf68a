#include "oficina/bot/level_plays.h"

#include <gtest/gtest.h>

#include "tests/mesa.h"

namespace tests {
namespace {

using bot::LevelFigures;
using bot::LevelPlay;

TEST(LevelWatch, MeasuresWhatAPlayerWaitsFor) {
  Mesa mesa(Levels(
      {"600,1000,250,480,20\r\n600,3000,250,480,5\r\n600,5000,250,480,21\r\n600,7000,250,480,21\r\n"}));
  game& jogo = mesa.Jogo();
  bot::LevelWatch watch;
  const auto look = [&](int second, const std::vector<std::string>& sounds = {}) {
    watch.Look(jogo, std::chrono::seconds(second), sounds);
  };
  look(100);
  look(107, {"hard.wav", "ball.wav", "hard.wav"});
  jogo.Module1.TipoBox(2) = 0;
  look(110, {"bloc.wav"});
  look(115, {"hard.wav"});
  jogo.Module1.TipoBox(3) = 0;
  look(116);
  jogo.Module1.TipoBox(4) = 1;  // once hit by a ball that passes through, it is seen
  look(160);
  const LevelPlay play = watch.Play(true);
  EXPECT_TRUE(play.ended);
  EXPECT_DOUBLE_EQ(play.minutes, 1);
  EXPECT_DOUBLE_EQ(play.drought, 44);
  EXPECT_EQ(play.hard_hits, 3);
  EXPECT_DOUBLE_EQ(play.unseen, 9);
}

TEST(LevelFigures, TellTheMiddlePlayAndTheMeanOfTheUnseen) {
  const LevelFigures figures(
      3, 12, {{true, 9, 1, 30, 12}, {true, 1, 2, 10, 0}, {false, 2, 8, 400, 0}, {true, 4, 4, 20, 0}});
  EXPECT_EQ(figures.Name(), "D-12");
  EXPECT_FALSE(figures.ended);
  EXPECT_DOUBLE_EQ(figures.minutes, 3);
  EXPECT_DOUBLE_EQ(figures.drought, 3);
  EXPECT_DOUBLE_EQ(figures.hard_hits, 25);
  EXPECT_DOUBLE_EQ(figures.unseen, 3);
}

std::vector<std::string> Broken(int first, const std::vector<LevelPlay>& plays) {
  std::vector<LevelFigures> series;
  series.reserve(plays.size());
  for (const LevelPlay& play : plays)
    series.emplace_back(0, first + int(series.size()), std::vector<LevelPlay>{play});
  return bot::BrokenLimits(series);
}

TEST(BrokenLimits, NameTheLevelAndWhatItDoes) {
  const struct {
    int number = 0;
    LevelPlay play;
    const char* broken = "";
  } cases[] = {{7, {true, 1, 29.9, 199, 4.9}, ""},
               {7, {false, 60, 24, 199, 4}, "A-7: not finished"},
               {7, {true, 1, 30, 0, 0}, "A-7: 30.0 s without a block gone, not below 30.0"},
               {38, {true, 1, 15, 0, 0}, "A-38: 15.0 s without a block gone, not below 15.0"},
               {38, {true, 1, 14.9, 200, 0}, "A-38: 200.0 hits on hard blocks, not below 200.0"},
               {7, {true, 1, 0, 0, 5}, "A-7: 5.0 s with only unseen blocks left, not below 5.0"}};
  for (const auto& c : cases) {
    const std::vector<std::string> broken = Broken(c.number, {c.play});
    EXPECT_EQ(broken.empty() ? "" : broken.front(), c.broken);
    EXPECT_LE(broken.size(), 1U);
  }
}

TEST(BrokenLimits, FiveLevelsAreNoEasierThanTheEasiestBeforeThem) {
  const auto minutes = [](const std::vector<stage::Double>& of_levels) {
    std::vector<LevelPlay> plays;
    plays.reserve(of_levels.size());
    for (const stage::Double m : of_levels) plays.push_back({true, m, 0, 0, 0});
    return plays;
  };
  EXPECT_TRUE(Broken(1, minutes({3, 2, 3, 9, 9, 1.9, 4, 2, 4, 9, 5, 3, 3, 3, 3})).empty());
  EXPECT_EQ(
      Broken(1, minutes({3, 2, 3, 9, 9, 2, 1.5, 2, 4, 9, 5, 1.3, 3, 3, 3})),
      (std::vector<std::string>{"A-7: 1.5 minutes, easier than the five levels before its five (2.0)",
                                "A-12: 1.3 minutes, easier than the five levels before its five (1.5)"}));
  // Those whose five were not played whole.
  EXPECT_TRUE(Broken(4, minutes({3, 3, 1, 1, 1, 1, 1})).empty());
}

}  // namespace
}  // namespace tests
