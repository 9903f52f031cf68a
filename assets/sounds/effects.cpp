#include "assets/sounds/effects.h"

#include <array>

#include "assets/sounds/instruments.h"

namespace sons {
namespace {

// The scale, in hertz: C, D, E, G and A. Other octaves are doublings and halvings.
constexpr double kC4 = 261.63;
constexpr double kD4 = 293.66;
constexpr double kE4 = 329.63;
constexpr double kG4 = 392.00;
constexpr double kA4 = 440.00;

// Heard thousands of times an evening, so kept under what happens rarely.
constexpr double kFrequentPeakDb = -5.7;
constexpr double kUsualPeakDb = -4.4;
constexpr double kRarePeakDb = -3.6;

const Timbre& Round() {
  static const Timbre timbre{1.0, 0.28, 0.10, 0.04};
  return timbre;
}

const Timbre& Hollow() {
  static const Timbre timbre{1.0, 0.05, 0.42, 0.03, 0.18, 0.02, 0.08};
  return timbre;
}

const Timbre& Rich() {
  static const Timbre timbre{1.0, 0.62, 0.45, 0.32, 0.24, 0.17, 0.12, 0.08};
  return timbre;
}

// A dry bar of wood: the overtones of a bar are far apart and die at once.
Wave WallTick() {
  const Wave bar = Strike(0.060, 2.0 * kA4, {{1.0, 1.0, 0.006}, {2.76, 0.5, 0.004}});
  const Wave scrape = Shape(BandPass(Noise(0.060, 11), Steady(1800.0), 0.8), Pluck(0.0005, 0.004));
  return LowPass(Mix({{bar}, {scrape, 0.7}}), Steady(3000.0));
}

// The spring is a low note that dips in and bobs a little before it rests.
Wave PaddlePock() {
  const double rest = kC4 / 2.0;
  const Curve pitch = Sway(Settle(1.9 * rest, rest, 0.012), 26.0, Settle(2.4, 0.2, 0.04));
  const Wave skin = Shape(Tone(0.145, pitch, Round()), Pluck(0.002, 0.030));
  const Wave thud = Shape(LowPass(Noise(0.145, 23), Steady(500.0)), Pluck(0.001, 0.007));
  return Mix({{skin}, {thud, 0.5}});
}

// A small glass bubble: the pitch skips upwards and two splinters ring above it.
Wave BlockPop() {
  const Curve pitch = Settle(2.2 * kE4, 4.0 * kE4, 0.006);
  const Wave bubble = Shape(Tone(0.13, pitch, {1.0, 0.12}), Pluck(0.001, 0.016));
  const Wave splinters = Strike(0.13, 8.0 * kA4, {{1.0, 1.0, 0.018}, {1.52, 0.6, 0.011}});
  const Wave dust = Shape(HighPass(Noise(0.13, 37), Steady(4500.0)), Pluck(0.0005, 0.010));
  return Mix({{bubble}, {splinters, 0.30}, {dust, 0.22}});
}

// The snap is the contact; the hum of two coils slightly out of tune tells that the ball is held.
Wave MagnetCatch() {
  const double low = kC4 / 2.0;
  const Wave coils = Mix({{Tone(0.36, Settle(1.5 * low, low, 0.02), Rich())},
                          {Tone(0.36, Settle(1.5 * low, 1.018 * low, 0.02), Rich())}});
  const Wave hum =
      Shape(LowPass(Shape(coils, Flicker(33.0, 0.45)), Glide(2800.0, 700.0, 0.3)), Swell(0.025, 0.12, 0.20));
  const Wave snap = Shape(BandPass(Noise(0.05, 41), Glide(3800.0, 1300.0, 0.03), 1.2), Pluck(0.0005, 0.006));
  return Warm(Mix({{hum, 0.5}, {snap, 1.8}}), 1.0);
}

// Three steps down the scale, each sagging at its end as a sigh does.
Wave BallLost() {
  const auto sigh = [](double seconds, double note) {
    const Curve pitch = Sway(Glide(1.02 * note, 0.95 * note, seconds), 5.5, Steady(0.25));
    const Wave breath = BandPass(Noise(seconds, 53), Steady(2.0 * note), 3.0);
    const Wave voice = Mix({{Tone(seconds, pitch, Hollow())}, {breath, 0.35}});
    return Shape(voice, Swell(0.02, 0.10 * seconds, 0.80 * seconds));
  };
  const Wave last = Tone(0.58, Sway(Glide(kC4, 0.5 * kG4, 0.55), 5.0, Steady(0.35)), Hollow());
  return LowPass(Mix({{sigh(0.26, kA4)},
                      {sigh(0.28, kE4), 1.0, 0.20},
                      {Shape(last, Swell(0.03, 0.02, 0.52)), 1.1, 0.42}}),
                 Glide(2600.0, 900.0, 1.0));
}

// Quick high grains climb out of a haze that thins as the block takes its place.
Wave BlockRevealed() {
  const auto grain = [](double note) {
    return Shape(Tone(0.16, Steady(note), {1.0, 0.0, 0.15}), Pluck(0.006, 0.028));
  };
  const Wave haze =
      Shape(BandPass(Noise(0.31, 67), Glide(2200.0, 7500.0, 0.28), 2.5), Swell(0.12, 0.02, 0.16));
  return Mix({{grain(4.0 * kC4), 0.6},
              {grain(4.0 * kG4), 0.7, 0.035},
              {grain(8.0 * kD4), 0.8, 0.070},
              {grain(4.0 * kA4), 0.7, 0.105},
              {grain(8.0 * kE4), 0.9, 0.140},
              {Shape(haze, Flicker(28.0, 0.7)), 0.7}});
}

// A steel plate: its overtones fit no scale, which is what makes it sound like metal.
Wave HardClank() {
  const Wave plate = Strike(0.28, kA4,
                            {{1.0, 0.5, 0.045},
                             {2.32, 1.0, 0.060},
                             {2.38, 0.5, 0.055},
                             {3.85, 0.8, 0.050},
                             {5.17, 0.6, 0.040},
                             {6.71, 0.4, 0.035},
                             {9.43, 0.25, 0.020}});
  const Wave hammer = Shape(BandPass(Noise(0.28, 71), Steady(2600.0), 0.9), Pluck(0.0005, 0.006));
  return Shape(Warm(Mix({{plate, 0.55}, {hammer, 0.8}}), 1.0), Swell(0.001, 0.06, 0.219));
}

// Air rushing past, while one tone rises and another falls: something turned into something else.
Wave BallChanges() {
  const Wave wind = Shape(BandPass(Noise(0.44, 83), Arch(500.0, 4200.0, 0.44), 2.2), Swell(0.20, 0.02, 0.20));
  const Wave rising = Tone(0.44, Glide(kG4, 2.0 * kD4, 0.36), Round());
  const Wave falling = Tone(0.44, Glide(4.0 * kD4, 2.0 * kG4, 0.36), Round());
  const Wave turning = Shape(Mix({{rising}, {falling, 0.5}}), Flicker(17.0, 0.5));
  return Warm(Mix({{wind, 2.2}, {Shape(turning, Swell(0.12, 0.10, 0.20)), 0.55}}), 0.8);
}

// Rubber drawn out: pitch and brightness climb together, and the new length locks with a pop.
Wave PaddleGrows() {
  const Curve pitch = Sway(Glide(kC4, 2.0 * kC4, 0.27), 19.0, Glide(0.2, 0.9, 0.27));
  const Wave rubber =
      Shape(LowPass(Tone(0.30, pitch, Rich()), Glide(600.0, 4500.0, 0.27)), Swell(0.03, 0.19, 0.07));
  const Wave grip =
      Shape(BandPass(Noise(0.30, 97), Glide(700.0, 3000.0, 0.27), 4.0), Swell(0.15, 0.08, 0.05));
  const Wave pop = Shape(Tone(0.14, Settle(2.0 * kG4, 4.0 * kC4, 0.008), Round()), Pluck(0.002, 0.024));
  return Mix({{rubber, 0.6}, {grip, 0.5}, {pop, 0.9, 0.27}});
}

// The same rubber pressed together: darker by the moment, creaking, closed by a dull thud.
Wave PaddleShrinks() {
  const Wave rubber =
      LowPass(Tone(0.31, Glide(2.0 * kA4, 0.5 * kA4, 0.29), Hollow()), Glide(3800.0, 450.0, 0.29));
  const Wave creak =
      Shape(BandPass(Noise(0.31, 101), Glide(2400.0, 500.0, 0.29), 5.0), Swell(0.04, 0.18, 0.08));
  const Wave squeezed = Shape(Shape(rubber, Flicker(24.0, 0.65)), Swell(0.015, 0.22, 0.07));
  const Wave thud = Shape(Tone(0.12, Settle(kA4 / 2.0, kA4 / 4.0, 0.015), Round()), Pluck(0.003, 0.020));
  return Mix({{squeezed, 0.8}, {creak, 0.7}, {thud, 1.0, 0.28}});
}

// Thick glue: a low voice that wobbles wide, its mouth opening and closing with it, over wet bubbles.
Wave PaddleSticky() {
  const Curve pitch = Sway(Settle(1.5 * kE4 / 2.0, kE4 / 2.0, 0.08), 8.5, Glide(3.5, 1.2, 0.45));
  const Curve mouth = Sway(Steady(850.0), 8.5, Glide(14.0, 7.0, 0.45));
  const Wave voice = BandPass(Warm(Tone(0.47, pitch, Rich()), 1.2), mouth, 2.6);
  const Wave wet = Shape(BandPass(Noise(0.47, 113), mouth, 6.0), Flicker(17.0, 0.9));
  return Shape(Mix({{voice}, {wet, 0.5}}), Swell(0.03, 0.24, 0.19));
}

// A little horn call up the scale, with a bell on top of the note that stays.
Wave Fanfare() {
  const auto horn = [](double seconds, double note) {
    const Curve pitch = Sway(Settle(0.97 * note, note, 0.012), 5.5, Glide(0.02, 0.18, 0.3));
    const Wave lips = Shape(BandPass(Noise(seconds, 127), Steady(2.0 * note), 1.5), Pluck(0.004, 0.012));
    const Wave brass = LowPass(Tone(seconds, pitch, Rich()), Settle(4500.0, 1600.0, 0.09));
    return Shape(Mix({{brass}, {lips, 0.6}}), Swell(0.012, 0.30 * seconds, 0.66 * seconds));
  };
  const Wave bell = Strike(0.50, 8.0 * kC4, {{1.0, 1.0, 0.09}, {1.5, 0.4, 0.06}, {2.76, 0.2, 0.03}});
  return Warm(Mix({{horn(0.20, kG4), 0.8},
                   {horn(0.20, 2.0 * kC4), 0.85, 0.11},
                   {horn(0.22, 2.0 * kE4), 0.9, 0.22},
                   {horn(0.55, 2.0 * kG4), 1.0, 0.34},
                   {horn(0.55, 2.0 * kC4), 0.5, 0.34},
                   {bell, 0.25, 0.36}}),
              0.4);
}

constexpr std::array kEffects{
    Effect{"lad.wav", kFrequentPeakDb, WallTick},  Effect{"plat.wav", kFrequentPeakDb, PaddlePock},
    Effect{"bloc.wav", kFrequentPeakDb, BlockPop}, Effect{"magnetico.wav", kUsualPeakDb, MagnetCatch},
    Effect{"end.wav", kRarePeakDb, BallLost},      Effect{"bloc2.wav", kUsualPeakDb, BlockRevealed},
    Effect{"hard.wav", kUsualPeakDb, HardClank},   Effect{"ball.wav", kRarePeakDb, BallChanges},
    Effect{"mais.wav", kRarePeakDb, PaddleGrows},  Effect{"menos.wav", kRarePeakDb, PaddleShrinks},
    Effect{"cola.wav", kRarePeakDb, PaddleSticky}, Effect{"mais1.wav", kRarePeakDb, Fanfare},
};

}  // namespace

std::span<const Effect> Effects() { return kEffects; }

}  // namespace sons
