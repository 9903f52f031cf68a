#include <gtest/gtest.h>

#include "tests/mesa.h"

namespace tests {
namespace {

TEST(Status, ShowsOneIconForEachSpareLifeUpToFive) {
  Mesa mesa;
  game& jogo = mesa.Jogo();
  const std::pair<int, int> icons_of_lives[] = {{7, 5},  {6, 5}, {5, 4}, {2, 1}, {1, 0}, {0, 0},
                                                {-1, 0}, {3, 2}, {4, 3}, {7, 5}, {1, 0}};
  for (const auto& [lives, icons] : icons_of_lives) {
    const Integer nvida = lives;
    jogo.ExibeVidas(nvida);
    for (int k = 1; k <= 5; ++k)
      EXPECT_EQ(bool(jogo.life(k).Visible), k <= icons) << lives << " lives, " << k;
  }
}

TEST(Status, ShowsExactlyOneKindOfBall) {
  Mesa mesa;
  game& jogo = mesa.Jogo();
  EXPECT_TRUE(jogo.Imageball(0).Visible);
  for (const int kind : {2, 1, 0}) {
    jogo.Module1.BolaAtual = kind;
    jogo.ExibeBolaAtual();
    for (int i = 0; i <= 2; ++i) EXPECT_EQ(bool(jogo.Imageball(i).Visible), i == kind) << kind;
  }
}

TEST(Sound, AsksForAFileBesideTheLevelsAndGoesOnWithoutIt) {
  Mesa mesa;
  mesa.Jogo().sound("bloc.wav");
  mesa.Jogo().sound("nothing.wav");
  EXPECT_EQ(mesa.platform->TakeSounds(), (std::vector<std::string>{"bloc.wav", "nothing.wav"}));
}

}  // namespace
}  // namespace tests
