#include "assets/sounds/loudness.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace sons {
namespace {

constexpr std::size_t kWindow = kSampleRate / 10;

/// One filter of second order: what goes in (0 to 2 samples ago) and what came out (1 and 2 samples ago).
struct Biquad {
  std::array<double, 3> in;
  std::array<double, 2> out;

  void Run(Wave& wave) const {
    double x1 = 0.0;
    double x2 = 0.0;
    double y1 = 0.0;
    double y2 = 0.0;
    for (double& sample : wave) {
      const double x = sample;
      sample = in[0] * x + in[1] * x1 + in[2] * x2 - out[0] * y1 - out[1] * y2;
      x2 = x1;
      x1 = x;
      y2 = y1;
      y1 = sample;
    }
  }
};

double Warped(double frequency) { return std::tan(std::numbers::pi * frequency / kSampleRate); }

// The standard gives its two filters for 48 kHz; the figures below are the analogue ones behind them.

/// The head in the way of the sound: 4 dB more above some 1.7 kHz.
Biquad Head() {
  constexpr double kQ = 0.7071752369554196;
  constexpr double kGain = 1.584864701130855;
  constexpr double kMiddle = 1.258720930232562;  // at the corner
  const double k = Warped(1681.974450955533);
  const double scale = 1.0 + k / kQ + k * k;
  return {{(kGain + kMiddle * k / kQ + k * k) / scale, 2.0 * (k * k - kGain) / scale,
           (kGain - kMiddle * k / kQ + k * k) / scale},
          {2.0 * (k * k - 1.0) / scale, (1.0 - k / kQ + k * k) / scale}};
}

/// The ear's deafness to the lowest tones.
Biquad Rumble() {
  constexpr double kQ = 0.5003270373238773;
  const double k = Warped(38.13547087602444);
  const double scale = 1.0 + k / kQ + k * k;
  return {{1.0, -2.0, 1.0}, {2.0 * (k * k - 1.0) / scale, (1.0 - k / kQ + k * k) / scale}};
}

}  // namespace

double Loudness(Wave wave) {
  wave.resize(wave.size() + kWindow, 0.0);
  Head().Run(wave);
  Rumble().Run(wave);
  double power = 0.0;
  double loudest = 0.0;
  for (std::size_t i = 0; i < wave.size(); ++i) {
    power += wave[i] * wave[i];
    if (i >= kWindow) power -= wave[i - kWindow] * wave[i - kWindow];
    loudest = std::max(loudest, power);
  }
  return -0.691 + 10.0 * std::log10(loudest / static_cast<double>(kWindow));
}

}  // namespace sons
