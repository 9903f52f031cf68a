#include "stage/time/timer.h"

#include "stage/stage.h"

namespace stage {
namespace {

constexpr int kLongestInterval = 65535;

}  // namespace

Timer::Timer(Form& form, Long interval, bool enabled)
    : form_(form), Enabled(this, enabled), Interval(this, interval) {
  Pacing(interval);
  form_.OnStage().Timers().Add(*this);
}

Timer::~Timer() { form_.OnStage().Timers().Remove(*this); }

void Timer::RunTick(Moment beat) {
  due_ = beat + std::chrono::milliseconds(Interval);
  struct Ticking {
    explicit Ticking(Timer& timer) : timer_(timer) { timer_.ticking_ = true; }
    ~Ticking() { timer_.ticking_ = false; }
    Timer& timer_;
  } const ticking(*this);
  if (Tick) Tick();
}

void Timer::Enabling(const Flag& enabled) {
  if (enabled && !Enabled) due_ = form_.OnStage().Timers().Present() + std::chrono::milliseconds(Interval);
}

void Timer::Pacing(const Long& interval) {
  if (interval < 0 || interval > kLongestInterval) throw RuntimeError("interval out of range");
  due_ = form_.OnStage().Timers().Present() + std::chrono::milliseconds(interval);
}

}  // namespace stage
