// Opens an empty form with a timer of 10 ms and tells how many of the beats were delivered, how many ticks
// came twice in one, and how late they were.
#include <algorithm>
#include <chrono>
#include <iostream>
#include <string>
#include <vector>

#include "assets/assets.h"
#include "stage/machines/sdl/sdl_platform.h"
#include "stage/stage.h"
#include "tools/measure/measure.h"

namespace {

using stage::Moment;
using Milliseconds = std::chrono::duration<double, std::milli>;

class Ticking : public stage::Form {
 public:
  Ticking(stage::Stage& stage, stage::Platform& platform, std::size_t count)
      : Form(stage, "Ticking", {0, 0, 3000, 3000}) {
    timer_.Tick = [this, &platform, count] {
      ticks_.push_back(platform.Now());
      if (ticks_.size() == count) stage::Stage::End();
    };
  }
  const std::vector<Moment>& Ticks() const { return ticks_; }

 private:
  std::vector<Moment> ticks_;
  stage::Timer timer_{*this, 10, true};
};

void Report(const std::vector<Moment>& ticks) {
  const auto beats = (ticks.back() - stage::BeatAtOrBefore(ticks.front())) / stage::kBeat + 1;
  Moment latest{0};
  Moment total{0};
  int twice = 0;
  Moment last{-1};
  for (const Moment tick : ticks) {
    const Moment beat = stage::BeatAtOrBefore(tick);
    twice += beat == last ? 1 : 0;
    last = beat;
    latest = std::max(latest, tick - beat);
    total += tick - beat;
  }
  const auto count = double(ticks.size());
  std::cout << "beats " << beats << ", delivered " << 100 * count / double(beats) << " %, twice in one "
            << twice << ", late on average " << Milliseconds(total).count() / count << " ms, at most "
            << Milliseconds(latest).count() << " ms\n";
}

}  // namespace

void measure::Beats(Words words) {
  constexpr int kUsualSeconds = 30;
  const int seconds = words.empty() ? kUsualSeconds : std::stoi(words[0]);
  stage::sdl::SdlPlatform platform("Korvane", "korvane");
  stage::Stage stage(platform, korvane::Assets(), "Korvane");
  const auto form = std::make_shared<Ticking>(stage, platform, std::size_t(std::max(seconds, 1)) * 64);
  try {
    stage.Show(form, stage::kModeless);
    stage.Run();
  } catch (const stage::ProgramEnd&) {
    Report(form->Ticks());
  }
}
