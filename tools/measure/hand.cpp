// Moves the pointer of the display server at odd moments while the ball flies, and tells the times until the
// picture with the paddle there has been handed over: half of all, 99 of 100, and the worst.
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>

#include <atomic>
#include <cmath>
#include <iostream>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "assets/assets.h"
#include "stage/machines/sdl/sdl_platform.h"
#include "tools/measure/measure.h"
#include "tools/measure/self_player.h"

namespace {

using stage::Double;
using Clock = std::chrono::steady_clock;

/// How far from the hand the paddle may be as painted, in display pixels.
constexpr int kPrecision = 1;

/// Where the hand has put the pointer, until the paddle is seen there.
struct Move {
  std::atomic<int> x = -1;
  std::atomic<Clock::time_point> seen{};
};

class Watched : public tools::SelfPlayer<stage::sdl::SdlPlatform> {
 public:
  explicit Watched(Move& move) : SelfPlayer("Korvane", "korvane"), move_(move) { moves_paddle = false; }

  void Present(std::span<const stage::PixelRect> changed) override {
    SelfPlayer::Present(changed);
    korvane::game* const jogo = Flying();
    in_play = jogo != nullptr;
    if (jogo == nullptr) return;
    const Double paddle = jogo->User.Area().left * DisplaySize().height / jogo->Palco.Screen.Height;
    if (std::abs(paddle - move_.x) > kPrecision) return;
    move_.seen = Clock::now();
    move_.x = -1;
  }

  std::optional<stage::Event> NextEvent() override {
    // The ball turns above the paddle, which need not be there to meet it.
    constexpr Double kLowest = 6000;
    korvane::game* const jogo = Flying();
    if (jogo != nullptr && jogo->ball.Top > kLowest) jogo->VelY = -std::abs(jogo->VelY);
    if (enough.exchange(false)) return stage::QuitAsked{};
    return SelfPlayer::NextEvent();
  }

  std::atomic<bool> in_play = false;
  std::atomic<bool> enough = false;

 private:
  Move& move_;
};

/// Moves the pointer `count` times and gives the times that the picture took, in ms.
std::vector<Double> MoveHand(const std::stop_token& stop, const Watched& watched, Move& move,
                             stage::PixelSize size, int count) {
  using std::chrono::milliseconds;
  constexpr auto kGivenUp = milliseconds(500);
  const std::unique_ptr<Display, decltype(&XCloseDisplay)> display(XOpenDisplay(nullptr), &XCloseDisplay);
  if (!display) throw std::runtime_error("no display of X");
  std::mt19937 random(1);
  std::vector<Double> times;
  int before = 0;
  while (int(times.size()) < count && !stop.stop_requested()) {
    std::this_thread::sleep_for(std::chrono::microseconds(5000 + random() % 30000));
    if (!watched.in_play) continue;
    const int x = int(random() % unsigned(size.width * 3 / 4));
    // A paddle that is there already waits for nothing.
    if (std::abs(x - before) <= 2 * kPrecision) continue;
    before = x;
    move.x = x;
    const auto start = Clock::now();
    // Below the ball: a pointer that lies over it moves nothing.
    XTestFakeMotionEvent(display.get(), -1, x, size.height * 3 / 4, 0);
    XFlush(display.get());
    while (move.x >= 0 && Clock::now() - start < kGivenUp) std::this_thread::sleep_for(milliseconds(1));
    const bool seen = move.x.exchange(-1) < 0;
    const auto end = seen ? move.seen.load() : Clock::now();
    times.push_back(std::chrono::duration<Double, std::milli>(end - start).count());
  }
  return times;
}

}  // namespace

void measure::Hand(Words words) {
  constexpr int kUsualCount = 1000;
  const int moves = words.empty() ? kUsualCount : std::max(std::stoi(words[0]), 1);
  Move move;
  Watched watched(move);
  const stage::PixelSize size = watched.DisplaySize();
  korvane::Programa programa(watched, korvane::Assets());
  std::vector<Double> times;
  std::jthread hand([&](const std::stop_token& stop) {
    times = MoveHand(stop, watched, move, size, moves);
    watched.enough = true;
  });
  watched.Play(programa, stage::Moment::max());
  hand.join();
  std::ranges::sort(times);
  std::cout << times.size() << " moves of the hand: half are seen within " << times[times.size() / 2]
            << " ms, 99 of 100 within " << times[times.size() * 99 / 100] << " ms, the worst after "
            << times.back() << " ms\n";
}
