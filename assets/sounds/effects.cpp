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

// A dry knock on thick wood, over before it can ring.
Wave WallKnock() {
  const Wave bar = Strike(0.040, kA4, {{1.0, 1.0, 0.005}, {2.76, 0.2, 0.002}});
  const Wave scrape = Shape(BandPass(Noise(0.040, 11), Steady(700.0), 0.8), Pluck(0.0005, 0.004));
  return Warm(LowPass(Mix({{bar}, {scrape, 0.8}}), Steady(1100.0)), 1.8);
}

// The spring is a round note that dips in and bobs a little before it rests.
Wave PaddlePock() {
  const double rest = 2.0 * kC4;
  const Curve pitch = Sway(Settle(1.7 * rest, rest, 0.010), 30.0, Settle(2.4, 0.2, 0.04));
  const Wave skin = Shape(Tone(0.140, pitch, Round()), Pluck(0.002, 0.028));
  const Wave body = Shape(Tone(0.140, Settle(rest, 0.5 * rest, 0.010), {1.0}), Pluck(0.002, 0.020));
  const Wave thud = Shape(LowPass(Noise(0.140, 23), Steady(700.0)), Pluck(0.001, 0.007));
  return Mix({{skin}, {body, 0.8}, {thud, 0.4}});
}

// A small glass bubble: the pitch skips upwards and two splinters ring above it.
Wave BlockPop() {
  const Curve pitch = Settle(2.2 * kG4, 4.0 * kG4, 0.006);
  const Wave bubble = Shape(Tone(0.13, pitch, {1.0, 0.12}), Pluck(0.001, 0.016));
  const Wave splinters = Strike(0.13, 8.0 * kA4, {{1.0, 1.0, 0.018}, {1.52, 0.6, 0.011}});
  const Wave dust = Shape(HighPass(Noise(0.13, 37), Steady(4500.0)), Pluck(0.0005, 0.010));
  return Warm(Mix({{bubble}, {splinters, 0.40}, {dust, 0.25}}), 0.9);
}

// The snap is the contact; the buzz of two coils slightly out of tune tells that the ball is held.
Wave MagnetCatch() {
  const Wave coils = Mix({{Tone(0.30, Settle(1.5 * kC4, kC4, 0.012), Rich())},
                          {Tone(0.30, Settle(1.5 * kC4, 1.018 * kC4, 0.012), Rich())}});
  const Wave buzz = Shape(BandPass(Shape(coils, Flicker(65.0, 0.85)), Glide(3000.0, 1400.0, 0.15), 0.9),
                          Pluck(0.003, 0.060));
  const Wave snap = Shape(BandPass(Noise(0.05, 41), Glide(3800.0, 1300.0, 0.03), 1.2), Pluck(0.0005, 0.006));
  return Warm(Mix({{buzz, 0.8}, {snap, 1.4}}), 1.5);
}

// A blow that gives way at once, then two sinking sighs; the last comes to rest below all other sounds.
Wave BallLost() {
  const auto voice = [](double seconds, double from, double to, double glide) {
    return Tone(seconds, Sway(Glide(from, to, glide), 5.5, Steady(0.25)), Hollow());
  };
  const Wave blow = Mix({{voice(0.16, 2.0 * kC4, kA4, 0.10)}, {voice(0.16, kA4, kE4, 0.10)}});
  const Wave thud = Shape(LowPass(Noise(0.16, 53), Steady(1200.0)), Pluck(0.001, 0.025));
  const Wave stroke = Warm(Mix({{blow}, {thud, 2.0}}), 1.0);
  const Wave sigh = Shape(voice(0.20, kE4, 0.97 * kD4, 0.20), Swell(0.02, 0.02, 0.16));
  const Wave last = Shape(voice(0.60, kC4, 0.5 * kG4, 0.45), Swell(0.02, 0.04, 0.54));
  return LowPass(Mix({{Shape(stroke, Swell(0.002, 0.050, 0.07))}, {sigh, 0.22, 0.12}, {last, 0.26, 0.28}}),
                 Glide(2400.0, 1000.0, 0.9));
}

// Quick high grains climb while a haze thins as the block takes its place.
Wave BlockRevealed() {
  const auto grain = [](double note) {
    return Shape(Tone(0.20, Steady(note), {1.0, 0.0, 0.15}), Pluck(0.003, 0.030));
  };
  const Wave haze = Shape(BandPass(Noise(0.26, 67), Glide(2200.0, 7500.0, 0.08), 2.5), Pluck(0.010, 0.050));
  return Mix({{grain(4.0 * kC4), 0.9},
              {grain(4.0 * kG4), 0.9, 0.014},
              {grain(4.0 * kA4), 0.8, 0.028},
              {grain(8.0 * kD4), 0.8, 0.042},
              {grain(8.0 * kE4), 0.8, 0.056},
              {Shape(haze, Flicker(45.0, 0.7)), 0.7}});
}

// A steel plate held by a hand: its overtones fit no scale, which is what makes it sound like metal.
Wave HardClank() {
  const Wave plate = Strike(0.12, kE4,
                            {{1.0, 0.25, 0.018},
                             {2.32, 1.0, 0.034},
                             {2.38, 0.5, 0.032},
                             {3.85, 0.7, 0.028},
                             {5.17, 0.5, 0.024},
                             {6.71, 0.3, 0.020},
                             {9.43, 0.12, 0.008}});
  const Wave hammer = Shape(BandPass(Noise(0.12, 71), Steady(2200.0), 0.9), Pluck(0.0005, 0.005));
  return Shape(Warm(Mix({{plate, 0.55}, {hammer, 0.7}}), 1.0), Swell(0.001, 0.03, 0.089));
}

// One tone rises through another that falls, in a gust of air: something turned into something else.
Wave BallChanges() {
  const Wave wind = Shape(BandPass(Noise(0.34, 83), Arch(900.0, 5200.0, 0.16), 2.0), Swell(0.02, 0.04, 0.12));
  const Wave rising = Tone(0.34, Glide(kG4, 4.0 * kD4, 0.075), Round());
  const Wave falling = Tone(0.34, Glide(4.0 * kD4, kG4, 0.075), Round());
  const Wave crossing = Shape(Mix({{rising}, {falling, 0.8}}), Swell(0.003, 0.06, 0.03));
  const Wave rest = Shape(Tone(0.25, Steady(4.0 * kD4), Round()), Pluck(0.003, 0.045));
  return Mix(
      {{Warm(Mix({{wind, 1.9}, {crossing, 0.7}}), 0.8)}, {Shape(rest, Flicker(28.0, 0.6)), 0.35, 0.085}});
}

// Rubber drawn out: pitch and brightness climb together, and the new length locks with a pop.
Wave PaddleGrows() {
  const Curve pitch = Glide(kG4, 2.0 * kG4, 0.075);
  const Wave rubber =
      Shape(LowPass(Tone(0.12, pitch, Rich()), Glide(900.0, 5000.0, 0.075)), Swell(0.004, 0.055, 0.03));
  const Wave pop = Shape(Tone(0.26, Settle(2.0 * kG4, 4.0 * kC4, 0.008), Round()), Pluck(0.002, 0.040));
  const Wave ring = Shape(Tone(0.26, Steady(4.0 * kE4), {1.0, 0.1}), Pluck(0.004, 0.050));
  return Mix({{rubber, 0.8}, {pop, 0.7, 0.075}, {ring, 0.3, 0.085}});
}

// The same rubber pressed together, with a sour second voice: darker by the moment, creaking, closed by a
// thud.
Wave PaddleShrinks() {
  const auto rubber = [](double note) { return Tone(0.16, Glide(note, 0.5 * note, 0.12), Hollow()); };
  const Wave pressed =
      LowPass(Mix({{rubber(4.0 * kC4)}, {rubber(2.83 * kC4), 0.8}}), Glide(4500.0, 900.0, 0.12));
  const Wave creak =
      Shape(BandPass(Noise(0.16, 101), Glide(2400.0, 500.0, 0.12), 5.0), Swell(0.004, 0.06, 0.06));
  const Wave squeezed = Shape(Shape(pressed, Flicker(48.0, 0.75)), Swell(0.003, 0.055, 0.07));
  const Wave thud = Shape(Tone(0.20, Settle(kA4, 0.5 * kA4, 0.015), Hollow()), Pluck(0.003, 0.035));
  return Mix({{Warm(Mix({{squeezed, 0.8}, {creak, 0.6}}), 1.0)}, {thud, 0.45, 0.115}});
}

// Thick glue: a low voice, its mouth opening and closing wide, over wet bubbles.
Wave PaddleSticky() {
  const Curve pitch = Sway(Settle(1.5 * kE4, kE4, 0.03), 13.0, Glide(2.0, 0.8, 0.3));
  const Curve mouth = Sway(Steady(850.0), 13.0, Glide(14.0, 7.0, 0.3));
  const Wave voice = BandPass(Warm(Tone(0.36, pitch, Rich()), 1.2), mouth, 2.2);
  const Wave wet = Shape(BandPass(Noise(0.36, 113), mouth, 6.0), Flicker(26.0, 0.9));
  return Shape(Mix({{voice}, {wet, 0.5}}), Pluck(0.004, 0.085));
}

// A strummed chord that springs up the scale, and its answer an octave higher with a bell on top.
Wave Fanfare() {
  const auto horn = [](double seconds, double note) {
    const Wave lips = Shape(BandPass(Noise(seconds, 127), Steady(2.0 * note), 1.5), Pluck(0.002, 0.008));
    const Wave brass =
        LowPass(Tone(seconds, Settle(0.97 * note, note, 0.008), Rich()), Settle(5000.0, 1600.0, 0.06));
    return Shape(Mix({{brass}, {lips, 0.6}}), Pluck(0.003, 0.045));
  };
  const Wave bell = Strike(0.50, 8.0 * kC4, {{1.0, 1.0, 0.09}, {1.5, 0.4, 0.06}, {2.76, 0.2, 0.03}});
  return Warm(Mix({{horn(0.30, 2.0 * kG4), 0.9},
                   {horn(0.30, 4.0 * kC4), 0.9, 0.018},
                   {horn(0.30, 4.0 * kE4), 0.9, 0.036},
                   {horn(0.40, 2.0 * kG4), 0.5, 0.15},
                   {horn(0.40, 4.0 * kC4), 0.5, 0.15},
                   {bell, 0.2, 0.15}}),
              0.6);
}

// In loudness units. What is heard thousands of times an evening is kept under what happens rarely.
constexpr std::array kEffects{
    Effect{"lad.wav", -20.0, WallKnock},         Effect{"bloc.wav", -18.0, BlockPop},
    Effect{"plat.wav", -17.0, PaddlePock},       Effect{"hard.wav", -16.5, HardClank},
    Effect{"magnetico.wav", -15.0, MagnetCatch}, Effect{"bloc2.wav", -14.0, BlockRevealed},
    Effect{"ball.wav", -13.0, BallChanges},      Effect{"mais.wav", -13.0, PaddleGrows},
    Effect{"menos.wav", -13.0, PaddleShrinks},   Effect{"cola.wav", -13.0, PaddleSticky},
    Effect{"mais1.wav", -13.0, Fanfare},         Effect{"end.wav", -11.0, BallLost},
};

}  // namespace

std::span<const Effect> Effects() { return kEffects; }

}  // namespace sons
