// How levels end and what comes next.
#include <gtest/gtest.h>

#include "stage/dialogs.h"
#include "tests/mesa.h"

namespace {

using namespace tests;

TEST(Progression, OnlyHardBlocksLeftEndALevel) {
  struct Case {
    std::vector<int> types;
    int ball;
    bool has_hard;
    bool ends;
  };
  const Case cases[] = {{{20, 20}, 0, true, true}, {{20, 0}, 1, true, true},   {{0, 0}, 0, true, true},
                        {{20, 4}, 0, true, false}, {{20, 21}, 0, true, false}, {{20, 20}, 2, true, false},
                        {{0, 0}, 0, false, false}, {{1, 20}, 0, true, false}};
  for (const Case& each : cases) {
    Mesa mesa({{"levels/1.sav", "600,1000,250,480,3\n600,3000,250,480,3\n"}, {"levels/2.sav", kQuietLevel}});
    game& jogo = mesa.Jogo();
    for (int i = 0; i < 2; ++i) mesa.programa->Module1.TipoBox(i + 1) = each.types[std::size_t(i)];
    mesa.programa->Module1.BolaAtual = each.ball;
    jogo.TemRigido = each.has_hard;
    jogo.BolaPresa = false;
    jogo.passafase();
    EXPECT_EQ(jogo.FaseAtual, each.ends ? 2 : 1);
    EXPECT_EQ(jogo.BolaPresa, each.ends);
    EXPECT_EQ(jogo.Label2.Caption.Get(), each.ends ? "Tela: A-2" : "Tela: A-1");
  }
}

TEST(Progression, ClearingRestsTheBall) {
  Mesa mesa;
  game& jogo = mesa.Jogo();
  mesa.programa->Module1.Vkorv = 80;
  jogo.User.Left = 2000;
  jogo.ball.Visible = false;
  jogo.DeslocaBola = 5;
  jogo.BolaPresa = false;
  jogo.VelX = 40;
  for (int times = 0; times < 2; ++times) {  // the second finds no level
    jogo.clearall();
    EXPECT_EQ(jogo.ProximoBox, 1);
    EXPECT_FALSE(jogo.Box.Exists(1));
    EXPECT_EQ(mesa.programa->Module1.TipoBox(1), 0);
    EXPECT_EQ(jogo.ball.Top, jogo.User.Top);
    EXPECT_EQ(jogo.ball.Left, Single(jogo.ball.Width / 2 + 2000));
    EXPECT_TRUE(jogo.BolaPresa);
    EXPECT_EQ(jogo.VelX, 0);
    EXPECT_EQ(jogo.VelY, -80);
    EXPECT_FALSE(jogo.ball.Visible);
    EXPECT_EQ(jogo.DeslocaBola, 5);
  }
}

/// Every level of this run is cleared as soon as the ball is launched.
TEST(Progression, RunsThroughAllSeriesToTheLastMessage) {
  Mesa mesa({{"levels/1.sav", "pisca,0,0,10,0\n"}, {"levels/2.sav", "pisca,0,0,10,0\n"}});
  game& jogo = mesa.Jogo();
  int messages = 0;
  mesa.platform->Director = [&] {
    EXPECT_EQ(dynamic_cast<stage::Dialog&>(*mesa.Palco().ActiveForm()).Message(),
              "Todos os niveis completados");
    ++messages;
    mesa.Press(13);
  };
  std::string seen;
  for (int launch = 0; launch < 10; ++launch) {
    seen += jogo.Label2.Caption.Get().substr(6) + " ";
    mesa.Press(32);
    mesa.Do();
    mesa.Beats(1);
  }
  EXPECT_EQ(seen, "A-1 A-2 B-1 B-2 C-1 C-2 D-1 D-2 D-2 D-2 ");
  EXPECT_EQ(messages, 3);
  EXPECT_EQ(jogo.FaseAtual, 5);
  EXPECT_EQ(jogo.Serie, 3);
  EXPECT_TRUE(jogo.BolaPresa);
  EXPECT_FALSE(jogo.Box.Exists(1));
  mesa.Beats(1500);  // nothing parks or falls on an empty field
  EXPECT_FALSE(jogo.Imgbonus.Visible);
}

TEST(Progression, ALevelNumberAtItsLimitStays) {
  Mesa mesa({{"levels/1.sav", "pisca,0,0,10,0\n"}, {"levels/32767.sav", "pisca,0,0,10,0\n"}});
  game& jogo = mesa.Jogo();
  jogo.FaseAtual = 32767;
  mesa.Press(32);
  mesa.Do();
  mesa.Beats(1);
  EXPECT_EQ(jogo.Label2.Caption.Get(), "Tela: A-32767");
}

}  // namespace
