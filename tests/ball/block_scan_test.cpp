#include <gtest/gtest.h>

#include "tests/ball/flight.h"

namespace tests {
namespace {

/// A ball of exactly 200 by 250 near a hard block from 5000 to 5480 across and 3000 to 3250 down. A hard
/// block tells the word of a hit by where it puts the ball. A low block far away closes the file.
class Scan : public testing::Test {
 protected:
  Scan() { Size(); }
  void Size() {
    jogo.ball.Width = 200;
    jogo.ball.Height = 250;
  }
  Flight After(const Flight& before) {
    before.Start(jogo);
    Tick(mesa);
    return FlightOf(jogo);
  }
  Mesa mesa{Levels({"3000,5000,250,480,20\n6000,11000,250,480,5\n", kQuietLevel})};
  game& jogo = mesa.Jogo();
};

Flight Turned(Flight flight, const std::string& word) {
  if (word == "up") flight.top = 2750;
  if (word == "down") flight.top = 3250;
  if (word == "left") flight.left = 4800;
  if (word == "right") flight.left = 5480;
  if (word == "up" || word == "down") flight.vy = -flight.vy;
  if (word == "left" || word == "right") flight.vx = -flight.vx;
  flight.left = Single(flight.left + flight.vx);
  flight.top = Single(flight.top + flight.vy);
  return flight;
}

struct ScanCase {
  Flight before;
  const char* word;
};

constexpr ScanCase kScanCases[] = {
    // From below: the step is added to the ball's top.
    {{5100, 3320, 0, -70}, "down"},
    {{5100, 3320.25, 0, -70}, ""},
    {{5480, 3320, 0, -70}, "down"},
    {{5480.25, 3320, -10, -70}, ""},
    {{4800, 3320, 0, -70}, "down"},
    {{4799.75, 3320, 10, -70}, ""},
    // Moving away upward the ball's own bottom still counts.
    {{5100, 2750, 0, -70}, "down"},
    {{5100, 2749.75, 0, -70}, ""},
    // From above: the step is added to the ball's bottom.
    {{5100, 2680, 0, 70}, "up"},
    {{5100, 2679.75, 0, 70}, ""},
    {{5480, 2680, -10, 70}, "up"},
    {{5480.25, 2680, -10, 70}, ""},
    {{4800, 2680, 10, 70}, "up"},
    {{4799.75, 2680, 10, 70}, ""},
    // From the left: the step is added to the ball's right edge; its middle has to have reached the block.
    {{4790, 3100, 10, 70}, "left"},
    {{4789.75, 3100, 10, 70}, ""},
    {{4790, 2875, 10, 70}, "left"},
    {{4790, 2874.75, 10, 70}, ""},
    {{4790, 3250, 10, 70}, "left"},
    {{4790, 3250.25, 10, 70}, ""},
    {{5480, 3200, 10, 70}, "left"},
    {{5480.25, 3200, 10, 70}, ""},
    // From the right: the step is added to the ball's left edge.
    {{5490, 3100, -10, 70}, "right"},
    {{5490.25, 3100, -10, 70}, ""},
    {{5490, 2875, -10, 70}, "right"},
    {{5490, 2874.75, -10, 70}, ""},
    {{5490, 3250, -10, 70}, "right"},
    {{5490, 3250.25, -10, 70}, ""},
    {{4800, 3200, -10, 70}, "right"},
    {{4799.75, 3200, -10, 70}, ""},
    // Where two words match, the first of down, left, right, up is taken.
    {{4850, 3240, 10, -70}, "down"},
    {{5400, 3240, -10, -70}, "down"},
    {{4850, 2900, 10, 70}, "down"},
    {{5100, 3200, 10, 70}, "left"},
    {{5100, 3200, -10, 70}, "left"},
    {{4805, 3200, -10, 70}, "right"},
    // With no step across the sides match on an overlap, and nothing is turned.
    {{5100, 3200, 0, 70}, "left"},
    {{4790, 3100, 0, 70}, ""},
    // Sums are rounded to single precision before they are compared.
    {{5100, 3320, 0, -69.9999}, "down"},
    // No step is long enough to jump over the block.
    {{5100, 3500, 0, -5000}, "down"},
    {{5100, 2000, 0, 5000}, "up"},
    {{2000, 3100, 9000, 70}, "left"},
    {{9000, 3100, -9000, 70}, "right"},
};

TEST_F(Scan, TellsTheSideByTheRectangleThatTheNextStepMeets) {
  for (const ScanCase& test : kScanCases) {
    const Flight& before = test.before;
    SCOPED_TRACE(testing::Message() << before.left << ' ' << before.top << " step " << before.vx << ' '
                                    << before.vy << ' ' << test.word);
    const Flight after = After(before);
    const Flight expected = Turned(before, test.word);
    EXPECT_EQ(Single(after.left), Single(expected.left));
    EXPECT_EQ(Single(after.top), Single(expected.top));
    EXPECT_EQ(after.vx, expected.vx);
    EXPECT_EQ(after.vy, expected.vy);
  }
}

TEST_F(Scan, PassesWhatIsHiddenAndMeetsWhatHasNoPicture) {
  jogo.Module1.TipoBox(1) = 5;
  jogo.Box(1).Visible = false;
  EXPECT_EQ(After({5100, 3100, 0, -70}).top, 3030);
  EXPECT_EQ(jogo.Module1.TipoBox(1), 5);
  jogo.Module1.TipoBox(1) = 21;
  jogo.Box(1).Visible = true;
  jogo.Box(1).Picture = nullptr;
  EXPECT_EQ(After({5100, 3100, 0, -70}).top, 3170);
  EXPECT_EQ(jogo.Module1.Pontos, 10);
}

}  // namespace
}  // namespace tests
