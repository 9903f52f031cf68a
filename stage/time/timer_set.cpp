#include "stage/time/timer_set.h"

#include <algorithm>

namespace stage {
namespace {

constexpr Moment kLongestWait = std::chrono::hours(1);

Moment BeatAtOrAfter(Moment moment) { return BeatAtOrBefore(moment + kBeat - Moment{1}); }

}  // namespace

void TimerSet::RunDue() {
  last_beat_ = BeatAtOrBefore(platform_.Now());
  while (Timer* const timer = Next(last_beat_)) Run(*timer, last_beat_);
}

Timer* TimerSet::Next(Moment beat) {
  while (only_ && only_->beat == beat) {
    auto& timers = only_->timers;
    const auto free =
        std::find_if(timers.begin(), timers.end(), [](const Timer* timer) { return !timer->Ticking(); });
    if (free == timers.end()) return nullptr;
    Timer* const timer = *free;
    timers.erase(free);
    if (timer->Enabled) return timer;
  }
  const auto due = std::find_if(timers_.begin(), timers_.end(), [&](const Timer* timer) {
    return timer->Waiting() && timer->DueAt() <= beat;
  });
  return due == timers_.end() ? nullptr : *due;
}

Moment TimerSet::Present() const {
  const Moment now = platform_.Now();
  return beat_ == BeatAtOrBefore(now) ? *beat_ : now;
}

void TimerSet::Run(Timer& timer, Moment beat) {
  const auto outer = std::exchange(beat_, beat);
  struct Restore {
    ~Restore() { place = outer; }
    std::optional<Moment>& place;
    const std::optional<Moment>& outer;
  } const restore{beat_, outer};
  timer.RunTick(beat);
}

void TimerSet::StopAllOf(const Form& form) {
  for (Timer* timer : timers_) {
    if (&timer->Owner() == &form) timer->Enabled = false;
  }
}

Moment TimerSet::NextBeat() const {
  const Moment now = platform_.Now();
  Moment next = now + kLongestWait;
  for (const Timer* timer : timers_) {
    if (timer->Waiting()) next = std::min(next, timer->DueAt());
  }
  return BeatAtOrAfter(std::max(next, last_beat_ + Moment{1}));
}

}  // namespace stage
