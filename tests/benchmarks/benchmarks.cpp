// What a tick, a level and a picture cost, beside a plain loop that tells how fast the machine is.
#include <benchmark/benchmark.h>

#include "stage/painting/looks.h"
#include "tests/mesa.h"

namespace {

using namespace tests;
namespace look = stage::look;
using look::milliseconds;

constexpr int kMostBlocks = 598;

/// As many blocks as a level holds, in rows over the upper field.
std::string FullLevel() {
  std::string text;
  for (int i = 0; i < kMostBlocks; ++i) {
    text += std::to_string(600 + i / 40 * 260) + ',' + std::to_string(300 + i % 40 * 280) + ",250,270," +
            std::to_string(1 + i % 19) + '\n';
  }
  return text;
}

const std::map<std::string, std::string> kFiles{{"levels/1.sav", FullLevel()}};

/// A full level on a display of 1920 x 1080 that somebody looks at; nothing is painted yet.
class SeenMesa : public Mesa {
 public:
  explicit SeenMesa(int refresh_rate = 0)
      : Mesa(kFiles, {.screen = {16000, 9000}, .scale = 1.8, .refresh_rate = refresh_rate}) {
    platform->Look(true);
    Do();
  }
};

/// 10 000 steps that each need the one before, with a little memory and a branch that is hard to foretell.
void Reference(benchmark::State& state) {
  std::array<std::uint32_t, 256> memory{};
  std::uint32_t number = 1;
  for (auto _ : state) {
    for (int step = 0; step < 10'000; ++step) {
      number = number * 1664525U + 1013904223U;
      std::uint32_t& cell = memory[number >> 24U];
      cell += (number >> 16U & 1U) != 0 ? number : cell / 3;
    }
    benchmark::DoNotOptimize(memory);
  }
}
BENCHMARK(Reference);

/// The ball flies among the blocks and meets none of them.
void BallStepWithoutAHit(benchmark::State& state) {
  Mesa mesa(kFiles);
  game& jogo = mesa.Jogo();
  mesa.programa->Module1.Vkorv = 75;
  jogo.BolaPresa = false;
  for (auto _ : state) {
    jogo.ball.Top = 5000;
    jogo.ball.Left = 6000;
    jogo.VelX = 0;
    jogo.VelY = 1;
    jogo.Box(jogo.ProximoBox).Visible = true;  // a parked bonus far away keeps the scan going
    jogo.Box(jogo.ProximoBox).Top = 7000;
    jogo.MoveBola();
  }
  if (jogo.BolaPresa || mesa.programa->Module1.Pontos != 0) state.SkipWithError("the ball has met something");
}
BENCHMARK(BallStepWithoutAHit);

void LoadFullLevel(benchmark::State& state) {
  Mesa mesa(kFiles);
  for (auto _ : state) {
    mesa.Jogo().clearall();
    mesa.Jogo().loadup(1);
  }
}
BENCHMARK(LoadFullLevel)->Unit(benchmark::kMicrosecond);

/// The drawings made already or not.
void PaintFullLevel(benchmark::State& state) {
  SeenMesa mesa;
  for (auto _ : state) mesa.Palco().Repaint();
}
BENCHMARK(PaintFullLevel)->Unit(benchmark::kMicrosecond);

void PaintFullLevelFromNothing(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    {
      SeenMesa mesa;
      state.ResumeTiming();
      mesa.Palco().Repaint();
      state.PauseTiming();
    }
    state.ResumeTiming();
  }
}
BENCHMARK(PaintFullLevelFromNothing)->Unit(benchmark::kMicrosecond)->Iterations(20);

void PaintChangedBall(benchmark::State& state) {
  SeenMesa mesa;
  mesa.Palco().Repaint();
  Single left = 1000;
  for (auto _ : state) {
    left = left > 10000 ? 1000 : left + 100;
    mesa.Jogo().ball.Left = left;
    mesa.Jogo().ball.Top = 3000;
    mesa.Palco().PaintNow();
  }
}
BENCHMARK(PaintChangedBall)->Unit(benchmark::kMicrosecond);

/// The ball on its way between two beats, a picture for each refresh of a display of 240 Hz.
void PaintGlidingBall(benchmark::State& state) {
  SeenMesa mesa(240);
  mesa.Palco().Repaint();
  game& jogo = mesa.Jogo();
  jogo.BolaPresa = false;
  jogo.paused = true;
  for (auto _ : state) {
    mesa.platform->Pass(stage::Moment(1'000'000 / 240));
    mesa.Palco().Glides().Beat();
    jogo.ball.Top = 5000;
    jogo.ball.Left = jogo.ball.Left > 10000 ? 1000 : Single(jogo.ball.Left + 35);
    mesa.Palco().PaintNow();
  }
}
BENCHMARK(PaintGlidingBall)->Unit(benchmark::kMicrosecond);

/// A refresh of an effect on a display of 60 Hz, which begins anew whenever it has ended.
void PaintEffect(benchmark::State& state, stage::Effect (*effect)(game& jogo)) {
  SeenMesa mesa(60);
  mesa.Palco().Repaint();
  game& jogo = mesa.Jogo();
  jogo.paused = true;
  stage::EffectSet& effects = mesa.Palco().Effects();
  for (auto _ : state) {
    if (effects.NextBeat() == stage::Moment::max()) effects.Begin(jogo.Imgbonus, effect(jogo));
    mesa.platform->Pass(stage::Moment(16'667));
    mesa.Palco().PaintNow();
  }
}
BENCHMARK_CAPTURE(PaintEffect, , [](game& jogo) { return look::Burst(jogo.Box(300), {}); })
    ->Name("PaintBurst")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PaintEffect, , [](game& jogo) { return look::Glint(jogo.Box(300)); })
    ->Name("PaintGlint")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PaintEffect, , [](game& jogo) { return look::Shimmer(jogo.Box(300)); })
    ->Name("PaintShimmer")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PaintEffect, ,
                  [](game& jogo) { return look::Flash(jogo.Box(300), 0xFFD070, milliseconds(250)); })
    ->Name("PaintFlash")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PaintEffect, ,
                  [](game& jogo) { return look::Glow(jogo.Image1, 0xFFFFFF, milliseconds(250)); })
    ->Name("PaintGlow")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PaintEffect, ,
                  [](game& jogo) {
                    return look::Ghostly(jogo.ball, milliseconds(300), {500, 700});
                  })
    ->Name("PaintGhost")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PaintEffect, , [](game& jogo) { return look::Collapse(jogo.ImagePower(1), jogo.Image1); })
    ->Name("PaintCollapse")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PaintEffect, ,
                  [](game&) {
                    return look::Line({12000, 5000, 30, 900}, 0xC8D8F0);
                  })
    ->Name("PaintLine")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PaintEffect, , [](game& jogo) { return look::Chevrons(jogo.ball, {}); })
    ->Name("PaintChevrons")
    ->Unit(benchmark::kMicrosecond);

/// A refresh of all blocks of a full level as they come into sight.
void PaintRows(benchmark::State& state) {
  SeenMesa mesa(60);
  mesa.Jogo().paused = true;
  mesa.Palco().Repaint();
  for (auto _ : state) {
    if (mesa.Palco().Effects().NextBeat() == stage::Moment::max()) {
      state.PauseTiming();
      mesa.Jogo().clearall();
      mesa.Jogo().loadup(1);
      state.ResumeTiming();
    }
    mesa.platform->Pass(stage::Moment(16'667));
    mesa.Palco().PaintNow();
  }
}
BENCHMARK(PaintRows)->Unit(benchmark::kMicrosecond);

/// The ball flies between the walls and a paddle as wide as the field; nobody looks.
void MinuteOfPlay(benchmark::State& state) {
  constexpr int kBeats = 60 * 64;
  const std::map<std::string, std::string> block_out_of_reach{
      {"levels/1.sav", "pisca,0,500,10,0\n9600,0,250,480,5\n"}};
  Mesa mesa(block_out_of_reach);
  game& jogo = mesa.Jogo();
  mesa.programa->Module1.Vkorv = 75;
  jogo.VelY = -75;
  jogo.BolaPresa = false;
  jogo.User.Width = 12000;
  jogo.User.Left = 0;
  for (auto _ : state) mesa.Beats(kBeats);
  if (jogo.BolaPresa) state.SkipWithError("the ball has been lost");
}
BENCHMARK(MinuteOfPlay)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
