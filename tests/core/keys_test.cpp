#include <gtest/gtest.h>

#include "stage/dialogs.h"
#include "tests/player.h"

namespace tests {
namespace {

using namespace stage::key;
using stage::Double;

constexpr Double kUnitX = 0.99375;
constexpr Double kUnitY = 0.9;

/// Every key with the form that it brings up while the game can be held.
constexpr struct {
  int code;
  const char* form;
} kScreens[] = {{kF1, "FrmHelp"}, {kP, "pause"}, {kPause, "pause"}};

/// The form that stands when the key has been pressed; it is closed again.
std::string Brings(Mesa& mesa, int code, int shift = 0) {
  std::string form;
  mesa.platform->Director = [&] {
    form = mesa.FormName();
    mesa.Press(kEsc);
  };
  mesa.Jogo().Form_KeyDown(code, shift);
  mesa.platform->Director = nullptr;
  return form;
}

TEST(Keys, HelpAndPauseComeOnceTheGameHasBegunOrWhileTheBallIsHeld) {
  for (const auto& [code, form] : kScreens) {
    for (const bool begun : {false, true}) {
      for (const bool held : {false, true}) {
        for (const int shift : {0, 3, 7}) {
          Mesa mesa;
          mesa.Jogo().Module1.Iniciado = begun;
          mesa.Jogo().BolaPresa = held;
          EXPECT_EQ(Brings(mesa, code, shift), begun || held ? form : "") << code << begun << held;
        }
      }
    }
  }
}

TEST(Keys, TheJumpBoxComesWithCtrlAloneAndDoesNotHoldThePlay) {
  for (int shift = 0; shift <= 7; ++shift) {
    Mesa mesa;
    EXPECT_EQ(Brings(mesa, kA, shift), shift == 2 ? "InputBox" : "") << shift;
  }
  Mesa mesa;
  game& jogo = mesa.Jogo();
  jogo.BolaPresa = false;
  jogo.ball.Top = 5000;
  Play(mesa,
       {[&] {
          EXPECT_FALSE(jogo.paused);
          const auto& box = dynamic_cast<stage::Dialog&>(*mesa.Palco().ActiveForm());
          EXPECT_EQ(box.Message(), "Fase");
          mesa.platform->PassTo(stage::kBeat);
        },
        [&] {
          EXPECT_EQ(jogo.ball.Top, 4400) << "both timers of the ball tick once in a beat";
          mesa.Press(kEsc);
        }},
       [&] { jogo.Form_KeyDown(kA, 2); });
}

struct Jump {
  const char* text;
  int level;  // 0 where nothing happens
  const char* label = "Tela: A-1";
};

constexpr Jump kJumps[] = {{"1", 1},
                           {"3", 3, "Tela: A-3"},
                           {"1.5", 2, "Tela: A-2"},
                           {"2.5", 2, "Tela: A-2"},
                           {"1.49", 1},
                           {" 2 levels", 2, "Tela: A-2"},
                           {"0", 0},
                           {"0.5", 0},
                           {"0.99", 0},
                           {"-1", 0},
                           {"", 0},
                           {"two", 0},
                           {"40000", 0},
                           {"32767.6", 0},
                           {"99999999999999999999", 0},
                           {"9", 1, "Tela: B-1"},
                           {"32767", 1, "Tela: B-1"}};

void JumpTo(Mesa& mesa, const char* text, int last_key) {
  Play(mesa, {[&] {
         if (*text != '\0') mesa.Type(text);
         mesa.Press(last_key);
       }},
       [&] { mesa.Jogo().Form_KeyDown(kA, 2); });
}

TEST(Keys, TheJumpGoesToTheNearestWholeLevel) {
  for (const Jump& jump : kJumps) {
    for (const int last_key : {kEnter, kEsc}) {
      SCOPED_TRACE(testing::Message() << '"' << jump.text << "\" " << last_key);
      Mesa mesa(
          {{"levels/1.sav", kQuietLevel}, {"levels/2.sav", kQuietLevel}, {"levels/3.sav", kQuietLevel}});
      game& jogo = mesa.Jogo();
      jogo.BolaPresa = false;
      jogo.FaseAtual = 7;
      jogo.Vidas = 5;
      jogo.Module1.Pontos = 1234;
      JumpTo(mesa, jump.text, last_key);
      const bool jumps = jump.level != 0 && last_key == kEnter;
      EXPECT_EQ(jogo.FaseAtual, jumps ? jump.level : 7);
      EXPECT_EQ(jogo.Label2.Caption.Get(), jumps ? jump.label : "Tela: A-1");
      EXPECT_EQ(jogo.BolaPresa, jumps);
      EXPECT_EQ(jogo.Vidas, 5);
      EXPECT_EQ(jogo.Module1.Pontos, 1234);
    }
  }
}

TEST(Keys, SpaceLaunchesWithoutBeginningTheMeasuredRun) {
  Mesa mesa;
  game& jogo = mesa.Jogo();
  jogo.Form_KeyDown(kSpace, 1);
  EXPECT_FALSE(jogo.BolaPresa);
  EXPECT_FALSE(jogo.Module1.Iniciado);
  EXPECT_FALSE(jogo.timerDefine.Enabled);
  EXPECT_EQ(Brings(mesa, kF1), "");
  jogo.Form_KeyDown(kSpace, 0);
  EXPECT_FALSE(jogo.BolaPresa);
}

TEST(Keys, EscStopsTheBallShowsTheTableAndEnds) {
  for (const bool held : {true, false}) {
    Mesa mesa;
    game& jogo = mesa.Jogo();
    jogo.BolaPresa = held;
    jogo.Module1.Pontos = 999999;
    jogo.Module1.RecNovo = 4;
    bool asked = false;
    mesa.platform->Director = [&] {
      asked = true;
      EXPECT_EQ(mesa.FormName(), "FrmMostraRecords") << "the running score is not entered";
      EXPECT_FALSE(jogo.Timer_Move.Enabled);
      EXPECT_GE(mesa.Palco().CursorCounter(), 0);
      EXPECT_EQ(jogo.Module1.RecNovo, 4);
      mesa.Press(kEsc);
    };
    EXPECT_THROW(jogo.Form_KeyDown(kEsc, 0), stage::ProgramEnd);
    EXPECT_TRUE(asked);
  }
}

enum class Launch { kFull, kPlain, kNone };

struct Click {
  const char* on;
  Double x;  // form units
  Double y;
  Launch launch;
};

constexpr Click kClicks[] = {
    {"the background", 2500, 4000, Launch::kFull},      {"a block", 11100, 700, Launch::kFull},
    {"the parked bonus", 3100, 2100, Launch::kFull},    {"the bar", 7000, 9200, Launch::kFull},
    {"the paddle", 1000, 8600, Launch::kPlain},         {"the ball", 5960, 8400, Launch::kNone},
    {"a life icon", 2200, 9600, Launch::kNone},         {"the level label", 9000, 9500, Launch::kNone},
    {"the score label", 10800, 9500, Launch::kNone},    {"the falling bonus", 4100, 2100, Launch::kNone},
    {"the ball's indicator", 8600, 9700, Launch::kNone}};

void ClickOn(Mesa& mesa, const Click& click) {
  mesa.platform->MoveTo(click.x * kUnitX, click.y * kUnitY);
  mesa.Do();
  // The move has brought the paddle's very edge under the pointer.
  mesa.Jogo().User.Left = Single(click.x - 300);
  mesa.platform->Send(stage::PointerPressed{});
  mesa.Do();
}

TEST(Clicks, LaunchByWhatTheyHit) {
  for (const Click& click : kClicks) {
    SCOPED_TRACE(click.on);
    Mesa mesa;
    game& jogo = mesa.Jogo();
    jogo.MoveBola();
    stage::Image& parked = jogo.Box(2);
    parked.Picture = jogo.ImageBonusParado(4).Picture;
    parked.Left = 3000;
    parked.Top = 2000;
    parked.Visible = true;
    jogo.Imgbonus.Picture = jogo.ImagePower(4).Picture;
    jogo.Imgbonus.Left = 4000;
    jogo.Imgbonus.Top = 2000;
    jogo.Imgbonus.Visible = true;
    ClickOn(mesa, click);
    const bool full = click.launch == Launch::kFull;
    EXPECT_EQ(jogo.BolaPresa, click.launch == Launch::kNone);
    EXPECT_EQ(jogo.Module1.Iniciado, full);
    EXPECT_EQ(jogo.timerDefine.Enabled, full);
    EXPECT_EQ(jogo.TopoInicial, full ? 8275 : 0);
    EXPECT_EQ(jogo.TempoInicial, full ? 4320100 : 0) << "a second after noon, in hundredths";
  }
}

TEST(Clicks, OnlyTheFirstLaunchBeginsTheMeasuredRun) {
  Mesa mesa;
  game& jogo = mesa.Jogo();
  const Click& field = kClicks[0];
  ClickOn(mesa, field);
  jogo.timerDefine.Enabled = false;
  jogo.TopoInicial = 0;
  ClickOn(mesa, field);
  EXPECT_FALSE(jogo.timerDefine.Enabled) << "in flight";
  jogo.BolaPresa = true;
  ClickOn(mesa, field);
  EXPECT_FALSE(jogo.BolaPresa);
  EXPECT_FALSE(jogo.timerDefine.Enabled);
  EXPECT_EQ(jogo.TopoInicial, 0);
}

}  // namespace
}  // namespace tests
