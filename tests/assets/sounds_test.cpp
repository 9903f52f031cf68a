// The twelve sounds as they lie beside the program: each as loud as its place in the game asks, said at once,
// heard on any loudspeaker, without clicks, told from all others.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <map>
#include <numbers>
#include <set>

#include "assets/sounds/instruments.h"
#include "assets/sounds/loudness.h"
#include "tests/mesa.h"

namespace {

using sons::Wave;

struct Case {
  const char* name;
  double loudness;
  double longest;  // ms
};

constexpr Case kCases[] = {{"lad", -20, 60},     {"bloc", -18, 150},      {"plat", -17, 150},
                           {"hard", -16.5, 120}, {"magnetico", -15, 350}, {"bloc2", -14, 300},
                           {"ball", -13, 400},   {"mais", -13, 400},      {"menos", -13, 400},
                           {"cola", -13, 400},   {"mais1", -13, 700},     {"end", -11, 1000}};

/// The samples of a plain 44.1 kHz 16 bit mono file; none for any other.
Wave Read(const std::string& name) {
  const std::string bytes = tests::ReadFile(stage::machine::OwnFolder() / "sons" / (name + ".wav"));
  const auto field = [&](std::size_t at, std::size_t size) {
    std::uint32_t value = 0;
    std::memcpy(&value, bytes.data() + at, size);
    return value;
  };
  const bool plain = bytes.size() > 44 && bytes.starts_with("RIFF") && bytes.substr(8, 8) == "WAVEfmt " &&
                     field(20, 2) == 1 && field(22, 2) == 1 && field(24, 4) == 44100 && field(34, 2) == 16 &&
                     bytes.substr(36, 4) == "data" && field(40, 4) == bytes.size() - 44;
  Wave wave;
  for (std::size_t at = 44; plain && at < bytes.size(); at += 2) {
    wave.push_back(static_cast<std::int16_t>(field(at, 2)) / 32768.0);
  }
  return wave;
}

double Milliseconds(std::size_t samples) { return 1000 * sons::TimeOf(samples); }

double Energy(const Wave& wave, double from, double to) {
  double energy = 0;
  for (std::size_t i = 0; i < wave.size(); ++i) {
    if (Milliseconds(i) >= from && Milliseconds(i) < to) energy += wave[i] * wave[i];
  }
  return energy;
}

TEST(Sounds, AreLoudInTheirPlaceSaidAtOnceAndHeardOnALaptop) {
  for (const Case& each : kCases) {
    SCOPED_TRACE(each.name);
    const Wave wave = Read(each.name);
    ASSERT_FALSE(wave.empty());
    EXPECT_LE(Milliseconds(wave.size()), each.longest);
    EXPECT_NEAR(sons::Loudness(wave), each.loudness, 0.5);
    EXPECT_LE(std::abs(*std::max_element(wave.begin(), wave.end())), 0.708);
    EXPECT_LE(std::abs(*std::min_element(wave.begin(), wave.end())), 0.708);
    EXPECT_GE(Energy(wave, 0, 60), 0.5 * Energy(wave, 0, each.longest));
    const sons::Curve edge = sons::Steady(350);
    EXPECT_GE(sons::Loudness(sons::HighPass(sons::HighPass(wave, edge), edge)), each.loudness - 3);
    EXPECT_LT(std::abs(wave.front()), 0.01);
    EXPECT_LT(std::abs(wave.back()), 0.01);
  }
}

/// How loud a sound is in bands of half an octave and stretches of 20 ms, in decibels above what is lost
/// beside its loudest moment.
std::vector<double> Likeness(const Wave& wave) {
  constexpr double kStretch = 20;
  constexpr int kStretches = 6;
  constexpr double kHearing = 25;
  constexpr int kBands = 11;
  std::vector<double> likeness;
  for (int i = 0; i < kBands; ++i) {
    const double centre = 300 * std::pow(std::numbers::sqrt2, i);
    const Wave band = sons::BandPass(wave, sons::Steady(centre), 4);
    for (int stretch = 0; stretch < kStretches; ++stretch) {
      const double from = stretch * kStretch;
      likeness.push_back(10 * std::log10(Energy(band, from, from + kStretch) + 1e-9));
    }
  }
  const double loudest = *std::max_element(likeness.begin(), likeness.end());
  for (double& level : likeness) level = std::max(level - loudest + kHearing, 0.0);
  return likeness;
}

TEST(Sounds, AreToldApart) {
  std::map<std::string, std::vector<double>> known;
  for (const Case& each : kCases) {
    const std::vector<double> likeness = Likeness(Read(each.name));
    for (const auto& [name, other] : known) {
      double sum = 0;
      for (std::size_t i = 0; i < other.size(); ++i)
        sum += (likeness[i] - other[i]) * (likeness[i] - other[i]);
      EXPECT_GE(std::sqrt(sum / double(other.size())), 4.5) << each.name << " and " << name;
    }
    known[each.name] = likeness;
  }
}

TEST(Sounds, LoudnessIsThatOfTheStandard) {
  // Tones of full scale through the standard's own filters, which it gives for 48 kHz.
  constexpr struct {
    double pitch;
    double loudness;
  } kTones[] = {{50, -7.6}, {100, -4.8}, {997, -3.0}, {3000, 0.1}, {10000, 0.3}};
  for (const auto& tone : kTones) {
    EXPECT_NEAR(sons::Loudness(sons::Tone(1.0, sons::Steady(tone.pitch), {1.0})), tone.loudness, 0.1)
        << tone.pitch;
  }
  // A tenth of a second is heard whole wherever it stands, and half of that is 3 dB less.
  const Wave tone = sons::Tone(0.1, sons::Steady(997), {1.0});
  EXPECT_NEAR(sons::Loudness(sons::Mix({{tone, 1.0, 0.33}})), -3.0, 0.1);
  EXPECT_NEAR(sons::Loudness(Wave(tone.begin(), tone.begin() + 2205)), -6.0, 0.1);
}

TEST(Sounds, SilenceAndSpikesAreRefused) {
  EXPECT_THROW(sons::Finish(sons::Silence(0.1), -20), std::runtime_error);
  const Wave spike = sons::Strike(0.1, 440, {{1.0, 1.0, 0.001}});
  EXPECT_NEAR(sons::Loudness(sons::Finish(spike, -40)), -40, 0.01);
  EXPECT_THROW(sons::Finish(spike, -15), std::runtime_error);
}

TEST(Sounds, AreThoseThatTheGamePlays) {
  std::set<std::string> played;
  constexpr std::string_view kEnd = ".wav\"";
  for (const char* room : {"ball", "bonus", "levels", "screens"}) {
    for (const auto& entry : std::filesystem::directory_iterator(std::string(KORVANE_SOURCE) + '/' + room)) {
      const std::string code = tests::ReadFile(entry.path());
      for (std::size_t end = code.find(kEnd); end != std::string::npos; end = code.find(kEnd, end + 1)) {
        const std::size_t start = code.rfind('"', end) + 1;
        played.insert(code.substr(start, end - start));
      }
    }
  }
  std::set<std::string> made;
  for (const Case& each : kCases) made.insert(each.name);
  EXPECT_EQ(played, made);
}

}  // namespace
