// Two million draws through the ticks themselves, against the chances that the weights promise.
#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "tests/bonus/jogada.h"

namespace tests {
namespace {

constexpr int kDraws = 250'000;  // for each of two ticks in four states
constexpr int kSeed = 20250713;

/// Values of the draw that give bonus 1 to 8.
using Chances = std::array<int, 8>;

struct Column {
  int serie;
  int lives;
  Chances falling;
  Chances parked;
};

constexpr Column kColumns[] = {
    {0, 5, {19, 10, 50, 20, 20, 10, 3, 2}, {24, 25, 30, 20, 20, 10, 3, 3}},
    {0, 6, {19, 10, 50, 20, 20, 10, 5, 0}, {24, 25, 30, 20, 20, 10, 6, 0}},
    {1, 5, {19, 10, 52, 0, 20, 0, 3, 0}, {24, 25, 33, 0, 20, 0, 3, 0}},
    {3, 6, {19, 10, 50, 0, 20, 0, 5, 0}, {24, 25, 30, 0, 20, 0, 6, 0}},
};

/// The value that chi square passes once in a thousand times, by degrees of freedom.
constexpr Double kCritical[] = {0, 10.828, 13.816, 16.266, 18.467, 20.515, 22.458, 24.322, 26.124};

/// Counts by code; 0 counts the draws that gave nothing.
using Counts = std::array<int, 9>;

void ExpectAgrees(const Counts& counts, const Chances& chances, int of) {
  int nothing = of;
  for (const int chance : chances) nothing -= chance;
  Double chi = 0;
  int freedom = -1;
  for (std::size_t code = 0; code < counts.size(); ++code) {
    const int chance = code == 0 ? nothing : chances[code - 1];
    if (chance == 0) {
      EXPECT_EQ(counts[code], 0) << "bonus " << code;
      continue;
    }
    const Double expected = Double(kDraws) * chance / of;
    chi += std::pow(counts[code] - expected, 2) / expected;
    ++freedom;
  }
  EXPECT_LT(chi, kCritical[freedom]);
}

class Draws : public testing::TestWithParam<Column> {
 protected:
  Draws() {
    mesa.Quiet();
    State{.serie = GetParam().serie, .lives = GetParam().lives}.To(jogo);
    jogo.ball.Top = 7000;
    mesa.Palco().Draws.Fix(kSeed);
  }

  QuietMesa mesa;
  game& jogo = mesa.Jogo();
};

TEST_P(Draws, OfFallingBonusesAgreeWithTheirChances) {
  Counts counts{};
  for (int i = 0; i < kDraws; ++i) {
    jogo.BonusCaindo = -1;
    jogo.Timer2_Timer();
    ++counts[jogo.BonusCaindo == -1 ? 0U : std::size_t(int(jogo.BonusCaindo))];
  }
  ExpectAgrees(counts, GetParam().falling, 400);
}

TEST_P(Draws, OfParkedBonusesAgreeWithTheirChances) {
  Counts counts{};
  jogo.Box(1).Top = 8000;  // no place can fail
  for (int i = 0; i < kDraws; ++i) {
    jogo.Box(jogo.ProximoBox).Visible = false;
    jogo.TimerBonusParado_Timer();
    ++counts[std::size_t(int(jogo.BonusParado))];
  }
  ExpectAgrees(counts, GetParam().parked, 380);
}

INSTANTIATE_TEST_SUITE_P(States, Draws, testing::ValuesIn(kColumns), [](const auto& column) {
  return std::string("Series") + "ABCD"[column.param.serie] + "Lives" + std::to_string(column.param.lives);
});

}  // namespace
}  // namespace tests
