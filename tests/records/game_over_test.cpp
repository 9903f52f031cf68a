// What the player or the system does while the screens of a finished game are up.
#include <gtest/gtest.h>

#include "tests/player.h"

namespace {

using namespace tests;

/// A game that ends with this score. The table of records is empty, so any points beat it.
class Fim : public Mesa {
 public:
  explicit Fim(int pontos) { Jogo().Module1.Pontos = pontos; }
  void EndGame(const std::vector<Move>& moves) {
    Play(*this, moves, [this] { Jogo().gameover(); });
  }
};

TEST(GameOver, WhatWaitsBehindTheKeyThatClosesAScreenIsForTheNextOne) {
  Fim with_record(5);
  with_record.EndGame({[&] {
    with_record.Type("Eu");
    with_record.Press(13);
    with_record.Press(27);  // closes the table, not the program
  }});
  EXPECT_EQ(with_record.FormName(), "game");
  EXPECT_EQ(with_record.Jogo().Module1.RecNome(1), "Eu");

  Fim without(0);
  without.EndGame({[&] {
    without.Press(13);
    without.Click();
    without.Press(32);
  }});
  without.Palco().DoEvents();
  EXPECT_EQ(without.FormName(), "game");
  // The click has closed the table that lay over the new game.
  EXPECT_FALSE(without.Jogo().Module1.Iniciado);
  EXPECT_FALSE(without.Jogo().timerDefine.Enabled);
}

TEST(GameOver, ASessionThatEndsMeanwhileEndsTheProgram) {
  for (const int pontos : {0, 5}) {
    Fim fim(pontos);
    fim.EndGame({[&] { fim.platform->Send(stage::QuitAsked{}); }});
    fim.platform->Director = [] { FAIL() << "nothing is left to wait for"; };
    fim.Palco().Run();
    EXPECT_EQ(fim.FormName(), "");
  }
}

}  // namespace
