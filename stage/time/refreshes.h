// When the display takes a new picture: as the machine tells, else by a clock that goes at the display's
// rate.
#pragma once

#include "stage/machines/platform.h"

namespace stage {

class Refreshes {
 public:
  explicit Refreshes(Platform& platform) : platform_(platform) {}

  /// Nobody sees anything move.
  bool Never() const { return platform_.RefreshRate() == 0; }
  Moment Last() const;
  /// The next one at the latest. A machine that tells of refreshes wakes the program earlier.
  Moment Next() const;
  /// From one to the next.
  Moment Between() const { return At(1); }

 private:
  std::int64_t LastNumber() const;
  Moment At(std::int64_t number) const;

  Platform& platform_;
};

}  // namespace stage
