// Timers: controls that are not seen and tick.
#pragma once

#include <functional>

#include "stage/forms/property.h"
#include "stage/machines/platform.h"

namespace stage {

class Form;

/// Comes due on the first beat of the stage that lies at least Interval ms after the beat of its last tick.
/// Ticks run as soon after their beat as the program gets to it: behind a late one the next may follow in
/// less than Interval ms. They do not queue, and a timer does not tick inside its own running tick. Turning
/// it on, or writing Interval while it is on, starts a new wait. Interval 0 never ticks; one outside 0 to
/// 65535 raises RuntimeError.
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
