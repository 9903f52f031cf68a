// Timers: controls that are not seen and tick.
#pragma once

#include <functional>

#include "stage/platform.h"
#include "stage/property.h"

namespace stage {

class Form;

/// Ticks on the beats of the stage, no sooner than Interval ms after the tick before. Ticks do not queue, and
/// a timer does not tick inside its own running tick. Turning it on, or writing Interval while it is on,
/// starts a new wait. Interval 0 never ticks; one outside 0 to 65535 raises RuntimeError.
class Timer {
 public:
  Timer(Form& form, Long interval, bool enabled);
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;
  ~Timer();

  bool Waiting() const { return Enabled && Interval > 0 && !ticking_; }
  bool Ticking() const { return ticking_; }
  Moment DueAt() const { return due_; }
  /// Runs the tick and starts the next wait at `beat`.
  void RunTick(Moment beat);
  Form& Owner() const { return form_; }

 private:
  void Enabling(const Flag& enabled);
  void Pacing(const Long& interval);

  Form& form_;
  Moment due_{};
  bool ticking_ = false;

 public:
  std::function<void()> Tick;
  Property<Flag, &Timer::Enabling, bool> Enabled;
  Property<Long, &Timer::Pacing, std::int64_t> Interval;
};

}  // namespace stage
