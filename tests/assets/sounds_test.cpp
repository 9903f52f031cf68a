// The twelve sounds as they lie beside the program: short where they are frequent, level, without clicks, all
// different.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <set>

#include "tests/mesa.h"

namespace {

struct Sound {
  std::vector<std::int16_t> samples;
  double Milliseconds() const { return double(samples.size()) / 44.1; }
};

/// The samples of a plain 44.1 kHz 16 bit mono file; none for any other.
Sound Read(const std::string& bytes) {
  const auto field = [&](std::size_t at, std::size_t size) {
    std::uint32_t value = 0;
    std::memcpy(&value, bytes.data() + at, size);
    return value;
  };
  Sound sound;
  const bool plain = bytes.size() > 44 && bytes.starts_with("RIFF") && bytes.substr(8, 8) == "WAVEfmt " &&
                     field(20, 2) == 1 && field(22, 2) == 1 && field(24, 4) == 44100 && field(34, 2) == 16 &&
                     bytes.substr(36, 4) == "data" && field(40, 4) == bytes.size() - 44;
  if (!plain) return sound;
  sound.samples.resize((bytes.size() - 44) / 2);
  std::memcpy(sound.samples.data(), bytes.data() + 44, sound.samples.size() * 2);
  return sound;
}

TEST(Sounds, AreShortLevelAndDifferent) {
  struct Case {
    const char* name;
    double shortest;
    double longest;
  };
  const Case cases[] = {{"lad", 30, 150},   {"plat", 30, 150},   {"bloc", 30, 150},  {"magnetico", 100, 600},
                        {"end", 500, 1500}, {"bloc2", 150, 450}, {"hard", 150, 400}, {"ball", 200, 700},
                        {"mais", 200, 700}, {"menos", 200, 700}, {"cola", 200, 700}, {"mais1", 500, 1200}};
  std::set<std::vector<std::int16_t>> all;
  for (const Case& each : cases) {
    const Sound sound =
        Read(tests::ReadFile(tools::OwnFolder() / "sons" / (std::string(each.name) + ".wav")));
    ASSERT_FALSE(sound.samples.empty()) << each.name;
    EXPECT_GE(sound.Milliseconds(), each.shortest) << each.name;
    EXPECT_LE(sound.Milliseconds(), each.longest) << each.name;
    int peak = 0;
    for (const std::int16_t sample : sound.samples) peak = std::max(peak, std::abs(int(sample)));
    const double decibels = 20 * std::log10(peak / 32768.0);
    EXPECT_GE(decibels, -6) << each.name;
    EXPECT_LE(decibels, -3) << each.name;
    constexpr int kSilence = 327;
    EXPECT_LT(std::abs(int(sound.samples.front())), kSilence) << each.name;
    EXPECT_LT(std::abs(int(sound.samples.back())), kSilence) << each.name;
    all.insert(sound.samples);
  }
  EXPECT_EQ(all.size(), std::size(cases));
}

}  // namespace
