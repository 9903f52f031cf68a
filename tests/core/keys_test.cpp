// What a click launches, by the control that it hits.
#include <gtest/gtest.h>

#include "tests/mesa.h"

namespace tests {
namespace {

using stage::Double;

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
    mesa.PointAt(click.x, click.y);
    // The move has brought the paddle's very edge under the pointer.
    jogo.User.Left = Single(click.x - 300);
    mesa.Click();
    mesa.Do();
    const bool full = click.launch == Launch::kFull;
    EXPECT_EQ(jogo.BolaPresa, click.launch == Launch::kNone);
    EXPECT_EQ(jogo.Module1.Iniciado, full);
    EXPECT_EQ(jogo.timerDefine.Enabled, full);
    EXPECT_EQ(jogo.TopoInicial, full ? 8275 : 0);
    EXPECT_EQ(jogo.TempoInicial, full ? 4320100 : 0) << "a second after noon, in hundredths";
  }
}

}  // namespace
}  // namespace tests
