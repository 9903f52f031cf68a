#include <gtest/gtest.h>

#include "stage/files/path_text.h"
#include "tests/mesa.h"

namespace {

using namespace tests;

constexpr int kMark = 2250;  // a quarter of the form's height

class Medida : public Mesa {
 public:
  using Mesa::Mesa;

  std::filesystem::path Ini() const { return folder.Path() / "config.ini"; }
  void Clock(Double seconds) { platform->SetSecondsOfDay(seconds); }
  /// A click on the field beside the paddle, at this second of the day.
  void Launch(Double second) {
    Beats(1);
    Clock(second);
    PointAt(6000, 5500);
    Click();
    Do();
    ASSERT_TRUE(Jogo().timerDefine.Enabled);
  }
};

struct Measure {
  const char* what = nullptr;
  int speed = 0;
  Double start = 0;  // seconds of the day
  Double end = 0;
  int result = 0;
  bool stored = true;
};

TEST(Calibration, ScalesTheStepByTheTimeTaken) {
  const Measure measures[] = {{"half as fast as wished", 300, 43200, 43200.5, 600},
                              {"twice as fast", 300, 43200, 43200.125, 150},
                              {"as wished", 300, 43200, 43200.25, 300},
                              {"halves go to the even neighbour", 2, 0, 0.3125, 2},
                              {"halves go to the even neighbour, odd below", 6, 0, 0.3125, 8},
                              {"no time at all", 300, 43200, 43200, 0},
                              {"longest", 300, 100, 127.25, 32700},
                              {"too long", 300, 100, 127.5, 300, false},
                              {"without an opposite", 256, 43200, 43168, 256, false},
                              {"past midnight", 300, 86399.75, 0.25, 300, false},
                              {"the clock set back", 300, 43200, 43199.5, -600},
                              {"downward", -200, 43200, 43200.5, -400}};
  for (const Measure& measure : measures) {
    SCOPED_TRACE(measure.what);
    const std::string ini = "; mine\n[OTHER]\nVkorv=7\n[Setup]\nvkorv = " + std::to_string(measure.speed);
    Medida mesa({{"levels/1.sav", kQuietLevel}, {"config.ini", ini + "\nmore=1"}});
    game& jogo = mesa.Jogo();
    mesa.Launch(measure.start);
    EXPECT_EQ(jogo.TempoInicial, Single(measure.start * 100));
    jogo.ball.Top = Single(Double(jogo.TopoInicial) - kMark + 1);
    jogo.VelX = 77;
    jogo.VelY = 55;
    jogo.timerDefine_Timer();
    EXPECT_TRUE(jogo.timerDefine.Enabled);
    EXPECT_EQ(std::pair(jogo.VelX, jogo.VelY), std::pair(0.0, Double(-measure.speed)));
    jogo.ball.Top = Single(Double(jogo.TopoInicial) - kMark);
    mesa.Clock(measure.end);
    jogo.timerDefine_Timer();
    EXPECT_FALSE(jogo.timerDefine.Enabled);
    EXPECT_EQ(mesa.programa->Module1.Vkorv, measure.result);
    EXPECT_EQ(std::pair(jogo.VelX, jogo.VelY), std::pair(0.0, Double(-measure.result)));
    EXPECT_EQ(ReadFile(mesa.Ini()), ini + "\nmore=1") << "the ball does not wait for the disk";
    mesa.platform->FinishWorks();
    const std::string stored = "; mine\n[OTHER]\nVkorv=7\n[Setup]\nvkorv =" + std::to_string(measure.result);
    EXPECT_EQ(ReadFile(mesa.Ini()), (measure.stored ? stored : ini) + "\nmore=1");
  }
}

TEST(Calibration, AFileThatCannotBeWrittenHoldsForTheRun) {
  Medida mesa;
  std::filesystem::create_directory(mesa.Ini());
  mesa.Launch(0);
  testing::internal::CaptureStderr();
  mesa.Beats(4);
  mesa.platform->FinishWorks();
  const std::string said = testing::internal::GetCapturedStderr();
  EXPECT_EQ(said,
            "korvane: cannot write " + stage::TextOf(mesa.Ini()) + "; the speed holds for this run only\n");
  EXPECT_EQ(mesa.programa->Module1.Vkorv, 75);
}

TEST(StoredSpeed, IsReadAsANumber) {
  const std::string noughts(250, '0');
  const std::pair<std::string, int> files[] = {{"[SETUP]\r\nVkorv=420\r\n", 420},
                                               {"[other]\nx=1\n[sEtUp]\n ; no\n  vKORV \t= 410 fast\n", 410},
                                               {"[SETUP]\nVkorv=2.5", 2},
                                               {"[SETUP]\nVkorv=3.5", 4},
                                               {"[SETUP]\nVkorv=-250", -250},
                                               {"[SETUP]\nVkorv=40000", 300},
                                               {"[SETUP]\nVkorv=", 300},
                                               {"[SETUP]\nVkorv=0.5", 300},
                                               {"[SETUP]\nVkorv=fast 5", 300},
                                               {"[SETUP]\nVkorv2=5\n;Vkorv=6\n[NEXT]\nVkorv=7", 300},
                                               {"[SETUP]\nVkorv=" + noughts + "1234567", 1234},
                                               {std::string(2 << 20, '\n') + "[SETUP]\nVkorv=5", 300}};
  for (const auto& [text, speed] : files) {
    Medida mesa({{"levels/1.sav", kQuietLevel}, {"config.ini", text}});
    EXPECT_EQ(mesa.programa->Module1.Vkorv, speed) << text.substr(0, 60);
    EXPECT_EQ(mesa.Jogo().VelY, -speed);
  }
}

TEST(StoredSpeed, WithoutAnOppositeMovesNoBall) {
  Medida mesa({{"levels/1.sav", kQuietLevel}, {"config.ini", "[SETUP]\r\nVkorv=-32768\r\n"}});
  game& jogo = mesa.Jogo();
  EXPECT_EQ(mesa.programa->Module1.Vkorv, -32768);
  EXPECT_EQ(jogo.VelY, 0);
  mesa.Launch(43200);
  mesa.Beats(3);
  EXPECT_FALSE(jogo.timerDefine.Enabled);
  jogo.consedebonus(3);
  EXPECT_EQ(jogo.Vidas, 2);
  EXPECT_TRUE(jogo.BolaPresa && jogo.ball.Visible);
}

}  // namespace
