// When timers tick: on beats of 1/64 s, never early, never queued, never inside themselves.
#include <gtest/gtest.h>

#include "tests/stage/bench.h"

namespace {

using namespace tests;

struct Timers : testing::Test {
  /// A timer of the form that counts its ticks.
  struct Counting : Timer {
    Counting(Form& form, Long interval, bool enabled) : Timer(form, interval, enabled) {
      Tick = [this] { ++ticks; };
    }
    int ticks = 0;
  };
  Bench bench;
  std::shared_ptr<NotingForm> form = std::make_shared<NotingForm>(bench.theatre);
};

TEST_F(Timers, TickOnTheFirstBeatAtOrAfterTheirInterval) {
  const std::pair<int, int> cases[] = {{1, 1},    {10, 1},    {15, 1},     {16, 2},
                                       {500, 32}, {1000, 64}, {5000, 320}, {10000, 640}};
  for (const auto& [interval, beats] : cases) {
    Counting timer(*form, interval, true);
    bench.Beats(beats - 1);
    EXPECT_EQ(timer.ticks, 0) << interval;
    bench.Beats(1);
    EXPECT_EQ(timer.ticks, 1) << interval;
    bench.Beats(beats);
    EXPECT_EQ(timer.ticks, 2) << interval;
  }
}

TEST_F(Timers, DoNotQueueWhatWasMissed) {
  Counting timer(*form, 10, true);
  bench.theatre.Sleep(std::chrono::seconds(3));
  bench.theatre.DoEvents();
  bench.theatre.DoEvents();
  EXPECT_EQ(timer.ticks, 1);
}

TEST_F(Timers, StartAnewWhenTurnedOnOrPaced) {
  Counting timer(*form, 1000, false);
  bench.Beats(100);
  EXPECT_EQ(timer.ticks, 0);
  timer.Enabled = true;
  bench.Beats(63);
  timer.Enabled = true;  // it is on already
  EXPECT_EQ(timer.ticks, 0);
  bench.Beats(1);
  EXPECT_EQ(timer.ticks, 1);
  bench.Beats(60);
  timer.Interval = 1000;
  bench.Beats(63);
  EXPECT_EQ(timer.ticks, 1);
  bench.Beats(1);
  EXPECT_EQ(timer.ticks, 2);
  timer.Interval = 0;
  bench.Beats(1000);
  EXPECT_EQ(timer.ticks, 2);
  EXPECT_THROW(timer.Interval = 65536, RuntimeError);
  EXPECT_THROW(timer.Interval = -1, RuntimeError);
  EXPECT_THROW(Counting(*form, 65536, true), RuntimeError);
  EXPECT_EQ(timer.Interval, 0);
  timer.Interval = 65535;
  bench.Beats(4194);
  EXPECT_EQ(timer.ticks, 2);
  bench.Beats(1);
  EXPECT_EQ(timer.ticks, 3);
}

TEST_F(Timers, TurnedOnInATickThatWaitedStartFromThatMoment) {
  Counting late(*form, 5000, false);
  Timer waiting(*form, 10, true);
  waiting.Tick = [&] {
    waiting.Enabled = false;
    bench.theatre.MsgBox("wait");
    late.Enabled = true;
  };
  bench.platform.Director = [&] {
    bench.platform.Pass(std::chrono::seconds(20));
    bench.platform.Send(KeyPressed{key::kEnter});
  };
  bench.Beats(1);
  bench.Beats(319);
  EXPECT_EQ(late.ticks, 0);
  bench.Beats(1);
  EXPECT_EQ(late.ticks, 1);
}

TEST_F(Timers, OfOthersTickInsideAYieldAndNeverInTheirOwn) {
  std::string order;
  Timer first(*form, 10, true);
  Timer second(*form, 10, true);
  first.Tick = [&] {
    order += "<1";
    bench.theatre.DoEvents();
    order += "1>";
  };
  second.Tick = [&] {
    order += "<2";
    bench.theatre.DoEvents();
    order += "2>";
  };
  bench.Beats(1);
  EXPECT_EQ(order, "<1<22>1>");
  // A beat passes inside: the first is due again, but under way.
  order.clear();
  second.Tick = [&] { order += "2"; };
  first.Tick = [&] {
    order += "<1";
    bench.Beats(1);
    order += "1>";
    first.Enabled = false;
  };
  bench.Beats(1);
  EXPECT_EQ(order, "<121>");
}

TEST_F(Timers, WakeTheProgramForTheNextOne) {
  constexpr Moment kHour = std::chrono::hours(1);
  const auto wait = [&] { return bench.theatre.Timers().NextBeat() - bench.platform.Now(); };
  bench.Beats(1);
  EXPECT_EQ(wait(), kHour) << "there is none";
  const Counting off(*form, 100, false);
  const Counting never(*form, 0, true);
  EXPECT_EQ(wait(), kHour);
  const Counting slow(*form, 1000, true);
  EXPECT_EQ(wait(), 64 * kBeat);
  Counting quick(*form, 20, true);
  EXPECT_EQ(wait(), 2 * kBeat);
  bench.platform.Pass(5 * kBeat + Moment(1));
  EXPECT_LT(wait(), Moment(0)) << "it is due, and its beat has not been run";
  bench.theatre.DoEvents();
  EXPECT_EQ(quick.ticks, 1);
  EXPECT_EQ(wait(), 2 * kBeat - Moment(1));
}

TEST_F(Timers, StopWithTheirForm) {
  Counting timer(*form, 10, true);
  bench.theatre.Show(form, kModeless);
  form->Unload();
  bench.Beats(5);
  EXPECT_EQ(timer.ticks, 0);
}

TEST_F(Timers, GoOnUnderAModalForm) {
  int ticks = 0;
  Timer timer(*form, 10, true);
  timer.Tick = [&] {
    if (++ticks == 10) bench.Press(key::kEnter);
  };
  bench.theatre.Show(form, kModeless);
  bench.theatre.MsgBox("wait");
  EXPECT_EQ(ticks, 10);
}

TEST_F(Timers, TheClockRestartsAtMidnight) {
  bench.platform.SetSecondsOfDay(86399.5);
  EXPECT_EQ(bench.theatre.Timer(), 86399.5F);
  bench.platform.Pass(std::chrono::milliseconds(750));
  EXPECT_EQ(bench.theatre.Timer(), 0.25F);
}

}  // namespace
