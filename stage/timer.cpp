#include "stage/timer.h"

#include "stage/stage.h"

namespace stage {
namespace {

constexpr int kLongestInterval = 65535;

}  // namespace

Timer::Timer(Form& form, Long interval, bool enabled)
    : form_(form), Enabled(this, enabled), Interval(this, interval) {
  form_.OnStage().Timers().Add(*this);
  Pacing(interval);
}

Timer::~Timer() { form_.OnStage().Timers().Remove(*this); }

void Timer::RunTick(Moment beat) {
  due_ = beat + std::chrono::milliseconds(Interval);
  struct Ticking {
    explicit Ticking(bool& flag) : flag_(flag) { flag_ = true; }
    ~Ticking() { flag_ = false; }
    bool& flag_;
  } const ticking(ticking_);
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
