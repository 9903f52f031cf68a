// Images that move by beats are seen on their way, jumps and held images where they are.
#include <gtest/gtest.h>

#include "stage/painting/glide.h"
#include "tests/stage/bench.h"

namespace {

using namespace tests;

constexpr int kRefreshRate = 320;  // five refreshes to a beat

class Gliding : public testing::Test {
 protected:
  explicit Gliding(std::optional<Moment> refresh_phase = std::nullopt, int refresh_rate = kRefreshRate)
      : bench({.scale = 1, .refresh_rate = refresh_rate, .refresh_phase = refresh_phase}) {
    bench.platform.Look(true);
    bench.theatre.Show(form, kModeless);
    mover.Tick = [this] {
      ball.Left = Single(ball.Left + step);
      step = next_step;
    };
    bench.Beats(2);
  }
  /// Left edge of what is painted white, in pixels; a column counts as far as it is white.
  Double SeenLeft(std::size_t line = kRow) {
    const std::vector<Pixel> pixels = bench.Pixels();
    const Pixel* const row = &pixels[line * 800];
    int x = 0;
    while (row[x] == 0) ++x;
    return x + 1 - (row[x] & 255U) / 255.0;
  }
  void PassRefresh() {
    bench.platform.PassTo(Moment(1000000 / kRefreshRate));
    bench.theatre.DoEvents();
  }

  static constexpr std::size_t kRow = 107;
  static constexpr int kHeldTop = 2250;
  static constexpr Asset kWhite{"white", R"(<svg xmlns="http://www.w3.org/2000/svg" width="15" height="15">
<rect width="15" height="15" fill="#ffffff"/></svg>)"};
  Bench bench;
  PictureStore pictures{{&kWhite, 1}};
  std::shared_ptr<NotingForm> form = std::make_shared<NotingForm>(bench.theatre);
  Image ball{*form, {1500, 1500, 225, 225}, pictures.Named("white"), false};
  Image paddle{*form, {6000, 8000, 900, 225}, nullptr, true};
  bool held = false;
  Glide glide{ball, [this] {
                return held ? std::optional(Place{paddle.Left.Get(), Single(kHeldTop)}) : std::nullopt;
              }};
  Single step = 0;
  Single next_step = 0;
  Timer mover{*form, 10, true};
};

TEST_F(Gliding, PartsEachStepAmongTheRefreshesOfItsBeat) {
  step = next_step = 165;  // eleven pixels
  bench.Beats(1);
  const Double start = SeenLeft();
  EXPECT_EQ(start, 100);
  for (int refresh = 1; refresh <= 12; ++refresh) {
    PassRefresh();
    EXPECT_NEAR(SeenLeft(), start + 2.2 * refresh, 0.02) << refresh;
    EXPECT_EQ(ball.Left, 1665 + 165 * (refresh / 5));
    EXPECT_GT(bench.theatre.Glides().NextRefresh(), bench.platform.Now());
    EXPECT_LE(bench.theatre.Glides().NextRefresh(), bench.platform.Now() + Moment(1000000 / kRefreshRate));
  }
}

/// On a display that tells when it takes a picture.
class GlidingAsTold : public Gliding {
 protected:
  static constexpr Moment kPhase{1000};
  GlidingAsTold() : Gliding(kPhase) {}
};

TEST_F(GlidingAsTold, GoesByTheDisplaysOwnRefreshes) {
  step = next_step = 165;  // eleven pixels
  bench.Beats(1);
  const Double start =
      100 - 11 * Double((Moment(1000000 / kRefreshRate) - kPhase).count()) / Double(kBeat.count());
  for (int refresh = 1; refresh <= 12; ++refresh) {
    const Moment next = *bench.platform.LastFrame() + Moment(1000000 / kRefreshRate);
    bench.platform.Pass(next - bench.platform.Now());
    bench.theatre.DoEvents();
    EXPECT_NEAR(SeenLeft(), start + 2.2 * refresh, 0.02) << refresh;
    EXPECT_EQ(bench.theatre.Glides().NextRefresh(), next + Moment(1250000 / kRefreshRate));
  }
}

/// On a display with half as many refreshes as there are beats.
class GlidingSlowly : public Gliding {
 protected:
  GlidingSlowly() : Gliding(std::nullopt, 32) {}
};

TEST_F(GlidingSlowly, ShowsWhereTheBeatBeforeTheRefreshHasPutTheImage) {
  step = next_step = 165;
  for (const int seen : {100, 111, 111, 133, 133, 155, 155}) {
    bench.Beats(1);
    EXPECT_EQ(SeenLeft(), seen);
  }
}

TEST_F(Gliding, WaitsWhereItIsToBeForABeatThatIsLate) {
  step = 165;
  bench.Beats(1);
  bench.platform.Pass(kBeat * 3 / 2);
  EXPECT_EQ(SeenLeft(), 111);
}

/// On a display with a quarter as many.
class GlidingRarely : public Gliding {
 protected:
  GlidingRarely() : Gliding(std::nullopt, 16) {}
};

TEST_F(GlidingRarely, IsNeverBehindWhereItWasABeatAgo) {
  step = next_step = 165;
  for (int beat = 0; beat < 8; ++beat) {
    const Double ago = ball.Left / 15;
    bench.Beats(1);
    EXPECT_GE(SeenLeft(), beat == 0 ? 100 : ago - 11);
    EXPECT_LE(SeenLeft(), ball.Left / 15);
  }
}

TEST_F(Gliding, EndsAtAWholePixelAndAsksForNoMoreRefreshes) {
  step = 157;
  bench.Beats(1);
  EXPECT_EQ(SeenLeft(), 100);
  EXPECT_LT(bench.theatre.Glides().NextRefresh(), Moment::max());
  bench.Beats(1);
  EXPECT_EQ(SeenLeft(), 110);
  EXPECT_EQ(bench.theatre.Glides().NextRefresh(), Moment::max());
}

TEST_F(Gliding, ShowsAtOnceWhatJumps) {
  step = 3000;
  bench.Beats(1);
  EXPECT_EQ(SeenLeft(), 300);
  EXPECT_EQ(bench.theatre.Glides().NextRefresh(), Moment::max());
  // A step as long as the one before is no jump, however long.
  step = 3000;
  bench.Beats(1);
  PassRefresh();
  EXPECT_NEAR(SeenLeft(), 340, 0.02);
}

TEST_F(Gliding, TakesThreeOfItsLengthsForAJump) {
  step = 660;
  bench.Beats(1);
  EXPECT_EQ(SeenLeft(), 100);
  bench.Beats(2);
  step = 690;
  bench.Beats(1);
  EXPECT_EQ(SeenLeft(), 144 + 46);
}

TEST_F(Gliding, ShowsAHeldImageWhereItsHolderIsNow) {
  held = true;
  step = next_step = 150;
  for (const int left : {6000, 6600, 300}) {
    paddle.Left = Single(left);
    EXPECT_EQ(SeenLeft(kHeldTop / 15), left / 15);
    EXPECT_EQ(bench.theatre.Glides().NextRefresh(), Moment::max());
  }
}

}  // namespace
