// What a tick, a level and a picture cost.
#include <benchmark/benchmark.h>

#include "tests/mesa.h"

namespace {

using namespace tests;

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
constexpr stage::ScreenSize kWide{16000, 9000};

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

/// 1920 x 1080, the drawings made already or not.
void PaintFullLevel(benchmark::State& state) {
  Mesa mesa(kFiles, kWide);
  mesa.platform->Rescale(1.8);
  mesa.platform->Look(true);
  mesa.Do();
  for (auto _ : state) mesa.Palco().Repaint();
}
BENCHMARK(PaintFullLevel)->Unit(benchmark::kMicrosecond);

void PaintFullLevelFromNothing(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    {
      Mesa mesa(kFiles, kWide);
      mesa.platform->Rescale(1.8);
      mesa.platform->Look(true);
      mesa.Do();
      state.ResumeTiming();
      mesa.Palco().Repaint();
      state.PauseTiming();
    }
    state.ResumeTiming();
  }
}
BENCHMARK(PaintFullLevelFromNothing)->Unit(benchmark::kMicrosecond)->Iterations(20);

void PaintChangedBall(benchmark::State& state) {
  Mesa mesa(kFiles, kWide);
  mesa.platform->Rescale(1.8);
  mesa.platform->Look(true);
  mesa.Do();
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

}  // namespace

BENCHMARK_MAIN();
