// What sounds are made from: tones, noise, bodies that ring, and how they move with time.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "assets/sounds/wave.h"

namespace sons {

/// A value that moves with time (seconds): a pitch or filter frequency in hertz, or a loudness from 0 to 1.
using Curve = std::function<double(double)>;

Curve Steady(double value);
/// Reaches `to` after `seconds` and stays there; even steps to the ear, so neither end may be zero.
Curve Glide(double from, double to, double seconds);
/// Hurries towards `to` and slows down: half of the way (in pitch) is gone every `half_life` seconds.
Curve Settle(double from, double to, double half_life);
/// Up from `low` to `high` and back again within `seconds`.
Curve Arch(double low, double high, double seconds);
/// A pitch that sways around another, `rate` times per second, by `semitones` to either side.
Curve Sway(Curve around, double rate, Curve semitones);

/// Loudness of something hit: short rise, then half as loud every `half_life` seconds.
Curve Pluck(double rise, double half_life);
/// Loudness of something blown or rubbed: the three durations follow each other.
Curve Swell(double rise, double hold, double fall);
/// Loudness that flickers `rate` times per second, losing up to `depth` (0 to 1) of itself.
Curve Flicker(double rate, double depth);

/// Loudness of each multiple of the pitch, the first being the pitch itself.
using Timbre = std::vector<double>;

Wave Tone(double seconds, const Curve& pitch, const Timbre& timbre);

/// One way a struck body rings; `ratio` is its pitch relative to the body's.
struct Partial {
  double ratio;
  double gain;
  double half_life;  // seconds
};

Wave Strike(double seconds, double pitch, const std::vector<Partial>& partials);

/// White noise; the same seed always gives the same noise.
Wave Noise(double seconds, std::uint32_t seed);

Wave Shape(Wave wave, const Curve& loudness);

Wave LowPass(Wave wave, const Curve& cutoff);
Wave HighPass(Wave wave, const Curve& cutoff);
/// The higher `focus`, the narrower the band and the more it whistles.
Wave BandPass(Wave wave, const Curve& centre, double focus);

/// Rounds off peaks as an overdriven amplifier would, which thickens a thin tone.
Wave Warm(Wave wave, double drive);

}  // namespace sons
