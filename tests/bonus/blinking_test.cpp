#include <gtest/gtest.h>

#include "tests/bonus/jogada.h"

namespace tests {
namespace {

/// Two blocks of the type, another between them, in a level where they blink.
std::string BlinkingLevel(int type) {
  const std::string t = std::to_string(type);
  return "pisca," + t + ",600,10,0\r\n1000,2000,250,500," + t +
         "\r\n1000,5000,250,500,3\r\n2000,8000,250,500," + t + "\r\n";
}

struct Blinking : QuietMesa {
  explicit Blinking(int type)
      : QuietMesa({{"levels/1.sav", BlinkingLevel(type)}, {"levels/2.sav", BlinkingLevel(type)}}) {
    Quiet();
  }
  std::vector<bool> Seen() {
    std::vector<bool> seen;
    for (Integer i = 1; i < Jogo().ProximoBox; i = i + 1) seen.push_back(Jogo().Box(i).Visible);
    return seen;
  }
};

using Seen = std::vector<bool>;

TEST(Blinking, BlocksOfTheTypeGoAndComeTogether) {
  Blinking mesa(5);
  game& jogo = mesa.Jogo();
  EXPECT_EQ(jogo.TimerPisca.Interval, 600);
  jogo.TimerPisca_Timer();  // the toggle starts at hidden
  EXPECT_EQ(mesa.Seen(), (Seen{true, true, true}));
  jogo.TimerPisca_Timer();
  EXPECT_EQ(mesa.Seen(), (Seen{false, true, false}));
  jogo.Module1.TipoBox(1) = 0;  // destroyed: no longer touched
  jogo.TimerPisca_Timer();
  EXPECT_EQ(mesa.Seen(), (Seen{false, true, true}));
  jogo.Module1.TipoBox(2) = 5;  // turned into the type: blinks from now on
  jogo.TimerPisca_Timer();
  EXPECT_EQ(mesa.Seen(), (Seen{false, false, false}));
  EXPECT_EQ(jogo.LabelPontos.Caption.Get(), "0");
}

TEST(Blinking, AHiddenHardBlockWaitsForTheBallToLeave) {
  struct {
    Double right;  // of the ball's corner from the block's
    Double down;
    bool over;
  } const cases[] = {{100, 100, true}, {-200, 0, true},  {-201, 0, false}, {500, 0, true}, {501, 0, false},
                     {0, -240, true},  {0, -241, false}, {0, 250, true},   {0, 251, false}};
  for (const int type : {20, 5}) {
    Blinking mesa(type);
    game& jogo = mesa.Jogo();
    jogo.ball.Width = 200;
    jogo.ball.Height = 240;
    for (const auto& c : cases) {
      SCOPED_TRACE(testing::Message() << "type " << type << " at " << c.right << ", " << c.down);
      for (Integer i = 1; i <= 3; i = i + 1) jogo.Box(i).Visible = i == 2;
      jogo.EstadoPisca = false;
      jogo.ball.Left = Single(2000 + c.right);
      jogo.ball.Top = Single(1000 + c.down);
      jogo.TimerPisca_Timer();
      EXPECT_EQ(mesa.Seen(), (Seen{type == 5 || !c.over, true, true}));
      jogo.ball.Top = 7000;
      jogo.TimerPisca_Timer();
      EXPECT_EQ(mesa.Seen(), (Seen{false, true, false}));
      jogo.TimerPisca_Timer();
      EXPECT_EQ(mesa.Seen(), (Seen{true, true, true}));
    }
  }
}

TEST(Blinking, ABlockThatIsSeenGoesAlsoUnderTheBall) {
  Blinking mesa(20);
  game& jogo = mesa.Jogo();
  jogo.EstadoPisca = true;
  jogo.ball.Left = 2000;
  jogo.ball.Top = 1000;
  jogo.TimerPisca_Timer();
  EXPECT_EQ(mesa.Seen(), (Seen{false, true, false}));
}

TEST(Blinking, HardBlocksThatTurnWhileHiddenAreShown) {
  Blinking mesa(20);
  game& jogo = mesa.Jogo();
  jogo.Box(1).Visible = false;
  jogo.BatidasRigido = 98;
  jogo.hos("up", 3);
  EXPECT_EQ(mesa.Seen(), (Seen{false, true, true}));
  jogo.hos("up", 3);
  EXPECT_EQ(mesa.Seen(), (Seen{true, true, true}));
  for (const int i : {1, 3}) {
    EXPECT_EQ(jogo.Module1.TipoBox(i), 4);
    EXPECT_EQ(jogo.Box(i).Picture.Get()->name, "ImagePedra4");
  }
  jogo.EstadoPisca = true;
  jogo.TimerPisca_Timer();
  EXPECT_EQ(mesa.Seen(), (Seen{true, true, true})) << "they no longer blink";
}

TEST(Blinking, ALevelThatGoesInAYieldEndsTheTick) {
  for (int at = 1; at <= 6; ++at) {
    SCOPED_TRACE(at);
    Blinking mesa(5);
    game& jogo = mesa.Jogo();
    jogo.EstadoPisca = true;
    int yields = 0;
    mesa.Yielding([&] { jogo.TimerPisca_Timer(); },
                  [&](int yield) {
                    yields = yield;
                    if (yield == at) GoToLevel2(jogo);
                  });
    EXPECT_EQ(yields, at);
    EXPECT_EQ(mesa.Seen(), (Seen{true, true, true}));
    EXPECT_TRUE(jogo.TimerPisca.Enabled);
  }
}

}  // namespace
}  // namespace tests
