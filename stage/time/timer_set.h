// The timers of all forms and the beats on which they tick.
#pragma once

#include <deque>
#include <optional>
#include <vector>

#include "stage/time/timer.h"

namespace stage {

/// The usual beat of a desktop's system clock.
inline constexpr Moment kBeat{15625};

constexpr Moment BeatAtOrBefore(Moment moment) { return moment / kBeat * kBeat; }

class TimerSet {
 public:
  explicit TimerSet(Platform& platform) : platform_(platform) {}

  void Add(Timer& timer) { timers_.push_back(&timer); }
  void Remove(const Timer& timer) { std::erase(timers_, &timer); }
  void StopAllOf(const Form& form);

  /// Ticks every timer whose wait is over at the last beat.
  void RunDue();
  /// The beat on which the next timer comes due; at the latest an hour from now. It may have come already, if
  /// that was after the last call of RunDue.
  Moment NextBeat() const;
  /// The moment that what happens now counts from: inside a tick its beat, until the clock has gone on to the
  /// next; the clock elsewhere.
  Moment Present() const;
  /// An event from outside runs, also when a tick is under way.
  class Outside {
   public:
    explicit Outside(TimerSet& set) : set_(set), beat_(std::exchange(set.beat_, std::nullopt)) {}
    ~Outside() { set_.beat_ = beat_; }
    Outside(const Outside&) = delete;
    Outside& operator=(const Outside&) = delete;

   private:
    TimerSet& set_;
    std::optional<Moment> beat_;
  };

  /// For repeatable play: on the next beat only these tick, once each, in this order, due or not.
  void OnlyOnNextBeat(std::deque<Timer*> timers) {
    only_ = Only{BeatAtOrBefore(platform_.Now()) + kBeat, std::move(timers)};
  }

 private:
  struct Only {
    Moment beat;
    std::deque<Timer*> timers;
  };
  Timer* Next(Moment beat);
  void Run(Timer& timer, Moment beat);

  Platform& platform_;
  std::vector<Timer*> timers_;
  Moment last_beat_{};
  std::optional<Moment> beat_;
  std::optional<Only> only_;
};

}  // namespace stage
