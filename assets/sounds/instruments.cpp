#include "assets/sounds/instruments.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace sons {
namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;
constexpr double kHighestPitch = 0.45 * kSampleRate;  // beyond this, tones would fold back as false ones
constexpr double kGentleFocus = std::numbers::sqrt2 / 2.0;  // no bump at the cutoff

struct Bands {
  double low;
  double band;
  double high;
};

// State variable filter in its trapezoidal form, chosen because it stays calm while its frequency moves.
class Filter {
 public:
  explicit Filter(double focus) : damping_(1.0 / focus) {}

  Bands Next(double input, double frequency) {
    const double g = std::tan(std::numbers::pi * std::min(frequency, kHighestPitch) / kSampleRate);
    const double high = (input - (damping_ + g) * first_ - second_) / (1.0 + g * (damping_ + g));
    const double band = g * high + first_;
    const double low = g * band + second_;
    first_ = g * high + band;
    second_ = g * band + low;
    return {low, damping_ * band, high};
  }

 private:
  double damping_;
  double first_ = 0.0;
  double second_ = 0.0;
};

Wave Filtered(Wave wave, const Curve& frequency, double focus, double Bands::*wanted) {
  Filter filter(focus);
  for (std::size_t i = 0; i < wave.size(); ++i) wave[i] = filter.Next(wave[i], frequency(TimeOf(i))).*wanted;
  return wave;
}

}  // namespace

Curve Steady(double value) {
  return [=](double) { return value; };
}

Curve Glide(double from, double to, double seconds) {
  return [=](double t) { return from * std::pow(to / from, std::clamp(t / seconds, 0.0, 1.0)); };
}

Curve Settle(double from, double to, double half_life) {
  return [=](double t) { return to * std::pow(from / to, std::exp2(-t / half_life)); };
}

Curve Arch(double low, double high, double seconds) {
  return [=](double t) {
    return low * std::pow(high / low, SmoothStep(2.0 * std::min(t, seconds - t) / seconds));
  };
}

Curve Sway(Curve around, double rate, Curve semitones) {
  return [=, around = std::move(around), semitones = std::move(semitones)](double t) {
    return around(t) * std::exp2(semitones(t) * std::sin(kTurn * rate * t) / 12.0);
  };
}

Curve Pluck(double rise, double half_life) {
  return [=](double t) { return SmoothStep(t / rise) * std::exp2(-std::max(t - rise, 0.0) / half_life); };
}

Curve Swell(double rise, double hold, double fall) {
  return [=](double t) { return SmoothStep(t / rise) * (1.0 - SmoothStep((t - rise - hold) / fall)); };
}

Curve Flicker(double rate, double depth) {
  return [=](double t) { return 1.0 - depth * (0.5 - 0.5 * std::cos(kTurn * rate * t)); };
}

Wave Tone(double seconds, const Curve& pitch, const Timbre& timbre) {
  Wave wave = Silence(seconds);
  double turns = 0.0;
  for (std::size_t i = 0; i < wave.size(); ++i) {
    const double frequency = pitch(TimeOf(i));
    double multiple = 1.0;
    for (const double gain : timbre) {
      // Overtones all starting together would add up to thin spikes; staggered, they sound as full but
      // softer.
      const double stagger = 0.5 * multiple * multiple / static_cast<double>(timbre.size());
      if (frequency * multiple < kHighestPitch) {
        wave[i] += gain * std::sin(kTurn * (turns * multiple + stagger));
      }
      multiple += 1.0;
    }
    turns += frequency / kSampleRate;
  }
  return wave;
}

Wave Strike(double seconds, double pitch, const std::vector<Partial>& partials) {
  Wave wave = Silence(seconds);
  for (std::size_t i = 0; i < wave.size(); ++i) {
    const double t = TimeOf(i);
    for (const Partial& partial : partials) {
      wave[i] +=
          partial.gain * std::exp2(-t / partial.half_life) * std::sin(kTurn * pitch * partial.ratio * t);
    }
  }
  return wave;
}

Wave Noise(double seconds, std::uint32_t seed) {
  Wave wave = Silence(seconds);
  // A plain congruential generator: the standard distributions may differ between libraries.
  std::uint32_t state = seed;
  for (double& sample : wave) {
    state = state * 1664525U + 1013904223U;
    sample = static_cast<double>(state) / 2147483648.0 - 1.0;
  }
  return wave;
}

Wave Shape(Wave wave, const Curve& loudness) {
  for (std::size_t i = 0; i < wave.size(); ++i) wave[i] *= loudness(TimeOf(i));
  return wave;
}

Wave LowPass(Wave wave, const Curve& cutoff) {
  return Filtered(std::move(wave), cutoff, kGentleFocus, &Bands::low);
}

Wave HighPass(Wave wave, const Curve& cutoff) {
  return Filtered(std::move(wave), cutoff, kGentleFocus, &Bands::high);
}

Wave BandPass(Wave wave, const Curve& centre, double focus) {
  return Filtered(std::move(wave), centre, focus, &Bands::band);
}

Wave Warm(Wave wave, double drive) {
  for (double& sample : wave) sample = std::tanh(drive * sample);
  return wave;
}

}  // namespace sons
