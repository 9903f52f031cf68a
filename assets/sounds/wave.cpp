#include "assets/sounds/wave.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <fstream>
#include <numbers>
#include <numeric>
#include <stdexcept>
#include <string>

#include "assets/sounds/loudness.h"
#include "stage/files/path_text.h"

namespace sons {
namespace {

constexpr double kFadeInSeconds = 0.001;  // short enough to keep the bite of a tick
constexpr double kFadeOutSeconds = 0.012;
constexpr double kHighestPeak = 0.7;  // 3 dB below full scale, so that no loudspeaker rounds it off

std::size_t SamplesIn(double seconds) { return static_cast<std::size_t>(std::lround(seconds * kSampleRate)); }

void RemoveOffset(Wave& wave) {
  const double mean = std::accumulate(wave.begin(), wave.end(), 0.0) / static_cast<double>(wave.size());
  for (double& sample : wave) sample -= mean;
}

void FadeEnds(Wave& wave) {
  for (std::size_t i = 0; i < wave.size(); ++i) {
    const double since_start = TimeOf(i);
    const double until_end = TimeOf(wave.size() - 1 - i);
    wave[i] *= SmoothStep(since_start / kFadeInSeconds) * SmoothStep(until_end / kFadeOutSeconds);
  }
}

void ScaleTo(Wave& wave, double loudness) {
  const double own = Loudness(wave);
  if (std::isinf(own)) throw std::runtime_error("a sound came out silent");
  const double gain = std::pow(10.0, (loudness - own) / 20.0);
  double peak = 0.0;
  for (double& sample : wave) {
    sample *= gain;
    peak = std::max(peak, std::abs(sample));
  }
  if (peak > kHighestPeak) throw std::runtime_error("a sound has too high peaks for its loudness");
}

// RIFF is little-endian whatever machine builds the game.
void Append(std::string& bytes, std::uint32_t value, int byte_count) {
  for (int i = 0; i < byte_count; ++i) bytes.push_back(static_cast<char>((value >> (8 * i)) & 0xFFU));
}

std::string Header(std::uint32_t data_bytes) {
  constexpr std::uint32_t kPcm = 1;
  constexpr std::uint32_t kChannels = 1;
  constexpr std::uint32_t kBytesPerSample = 2;
  std::string bytes = "RIFF";
  Append(bytes, 36 + data_bytes, 4);
  bytes += "WAVEfmt ";
  Append(bytes, 16, 4);
  Append(bytes, kPcm, 2);
  Append(bytes, kChannels, 2);
  Append(bytes, kSampleRate, 4);
  Append(bytes, kSampleRate * kChannels * kBytesPerSample, 4);
  Append(bytes, kChannels * kBytesPerSample, 2);
  Append(bytes, 8 * kBytesPerSample, 2);
  bytes += "data";
  Append(bytes, data_bytes, 4);
  return bytes;
}

}  // namespace

Wave Silence(double seconds) { return Wave(SamplesIn(seconds), 0.0); }

double TimeOf(std::size_t index) { return static_cast<double>(index) / kSampleRate; }

double SmoothStep(double x) { return 0.5 - 0.5 * std::cos(std::numbers::pi * std::clamp(x, 0.0, 1.0)); }

Wave Mix(const std::vector<Layer>& layers) {
  Wave mix;
  for (const Layer& layer : layers) {
    const std::size_t start = SamplesIn(layer.at);
    mix.resize(std::max(mix.size(), start + layer.wave.size()), 0.0);
    for (std::size_t i = 0; i < layer.wave.size(); ++i) mix[start + i] += layer.gain * layer.wave[i];
  }
  return mix;
}

Wave Finish(Wave wave, double loudness) {
  RemoveOffset(wave);
  FadeEnds(wave);
  ScaleTo(wave, loudness);
  return wave;
}

void WriteWav(const Wave& wave, const std::filesystem::path& path) {
  std::string bytes = Header(static_cast<std::uint32_t>(wave.size() * sizeof(std::int16_t)));
  for (const double sample : wave) {
    const auto level = static_cast<std::int32_t>(std::lround(std::clamp(sample, -1.0, 1.0) * 32767.0));
    Append(bytes, static_cast<std::uint32_t>(level), 2);
  }
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) throw std::runtime_error("cannot write " + stage::TextOf(path));
}

}  // namespace sons
