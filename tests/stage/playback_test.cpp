// A sound that is cut off leaves softly and soon, and only the latest is heard.
#include "stage/machines/playback.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <span>
#include <vector>

namespace {

using Samples = std::vector<std::int16_t>;
constexpr std::size_t kThreeMs = 132;  // in samples
constexpr std::size_t kFiveMs = 220;

Samples Heard(stage::Playback& playback, std::size_t count) {
  Samples samples(count, 12345);
  playback.Fill(samples);
  return samples;
}

TEST(Playback, PlaysOnceAndFallsSilent) {
  stage::Playback playback;
  EXPECT_EQ(Heard(playback, 2), Samples(2, 0));
  const Samples sound{1, 2, 3};
  playback.Start(sound);
  EXPECT_EQ(Heard(playback, 2), (Samples{1, 2}));
  EXPECT_EQ(Heard(playback, 3), (Samples{3, 0, 0}));
}

TEST(Playback, ACutLeavesWithinFiveMillisecondsWithoutAStep) {
  const Samples loud(1000, 20000);
  const Samples quiet(1000, 100);
  for (const std::size_t heard : {1U, 500U}) {
    stage::Playback playback;
    playback.Start(loud);
    Heard(playback, heard);
    playback.Start(quiet);
    int before = 20000;
    const Samples after = Heard(playback, 500);
    for (const std::int16_t sample : after) {
      EXPECT_LE(std::abs(sample - before), 200);
      before = sample;
    }
    EXPECT_GT(after[kThreeMs], 1000);
    EXPECT_EQ(Samples(after.begin() + kFiveMs, after.end()), Samples(after.size() - kFiveMs, 100));
  }
}

TEST(Playback, OfASoundThatEndsThereIsNoMoreToLeave) {
  const Samples loud(1000, 20000);
  const std::span<const std::int16_t> half(loud.data(), 500);
  const Samples silence(1000, 0);
  stage::Playback playback;
  playback.Start(half);
  Heard(playback, 490);
  playback.Start(silence);
  EXPECT_EQ(Heard(playback, 11).back(), 0);
}

TEST(Playback, OfTwoAtOnceOnlyTheLaterIsHeard) {
  const Samples one(1000, 20000);
  const Samples other(1000, 100);
  stage::Playback playback;
  playback.Start(one);
  playback.Start(other);
  EXPECT_EQ(Heard(playback, 1000), other);
}

TEST(Playback, WhatLeavesGoesOnLeavingUnderTheNextCut) {
  const Samples loud(1000, 20000);
  const Samples silence(1000, 0);
  stage::Playback playback;
  playback.Start(loud);
  Heard(playback, 500);
  playback.Start(silence);
  const int before = Heard(playback, 50).back();
  playback.Start(silence);
  const Samples after = Heard(playback, kFiveMs);
  EXPECT_LE(std::abs(after.front() - before), 200);
  EXPECT_EQ(after.back(), 0);
}

TEST(Playback, LoudSoundsDoNotTurnOverWhereTheyMeet) {
  for (const int sign : {-1, 1}) {
    const Samples loud(1000, std::int16_t(sign * 30000));
    stage::Playback playback;
    playback.Start(loud);
    Heard(playback, 500);
    playback.Start(loud);
    EXPECT_EQ(Heard(playback, 2), Samples(2, std::int16_t(sign < 0 ? -32768 : 32767)));
  }
}

}  // namespace
