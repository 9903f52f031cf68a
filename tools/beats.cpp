// korvane-beats [SECONDS]: how well the timers keep their beats in the real window. Opens an empty form with
// a timer of 10 ms and prints how many of the beats were delivered, how many ticks came early, and how late
// they were.
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <vector>

#include "assets/assets.h"
#include "stage/sdl/sdl_platform.h"
#include "stage/stage.h"

namespace {

using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

class Ticking : public stage::Form {
 public:
  Ticking(stage::Stage& stage, std::size_t count)
      : Form(stage, "Ticking", {0, 0, 3000, 3000}), count_(count) {
    timer_.Tick = [this] {
      ticks_.push_back(Clock::now());
      if (ticks_.size() == count_) OnStage().End();
    };
  }
  const std::vector<Clock::time_point>& Ticks() const { return ticks_; }

 private:
  std::size_t count_;
  std::vector<Clock::time_point> ticks_;
  stage::Timer timer_{*this, 10, true};
};

/// Ticks belong to the beats that lie nearest before them; the earliest tick of all sets the grid.
void Report(const std::vector<Clock::time_point>& ticks) {
  const Milliseconds beat = stage::kBeat;
  Milliseconds grid{0};
  for (std::size_t i = 0; i < ticks.size(); ++i) {
    const Milliseconds since = ticks[i] - ticks[0];
    grid = std::min(grid, since - std::floor(since / beat + 0.5) * beat);
  }
  double latest = 0;
  double total = 0;
  int early = 0;
  double last_beat = -1;
  for (const Clock::time_point tick : ticks) {
    const double place = (Milliseconds(tick - ticks[0]) - grid) / beat;
    const double late = (place - std::floor(place + 1e-6)) * beat.count();
    early += std::floor(place + 1e-6) == last_beat ? 1 : 0;
    last_beat = std::floor(place + 1e-6);
    latest = std::max(latest, late);
    total += late;
  }
  const double beats = last_beat + 1;
  std::cout << "beats " << beats << ", delivered " << 100 * double(ticks.size()) / beats << " %, early "
            << early << ", late on average " << total / double(ticks.size()) << " ms, at most " << latest
            << " ms\n";
}

}  // namespace

int main(int count, char** arguments) {
  constexpr int kUsualSeconds = 30;
  const int seconds = count > 1 ? std::atoi(arguments[1]) : kUsualSeconds;
  try {
    stage::sdl::SdlPlatform platform("Korvane", "korvane");
    stage::Stage stage(platform, korvane::Assets(), "Korvane");
    const auto form = std::make_shared<Ticking>(stage, std::size_t(std::max(seconds, 1)) * 64);
    try {
      stage.Show(form, stage::kModeless);
      stage.Run();
    } catch (const stage::ProgramEnd&) {
      Report(form->Ticks());
    }
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "korvane-beats: " << error.what() << '\n';
    return 1;
  }
}
