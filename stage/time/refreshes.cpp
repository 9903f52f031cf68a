#include "stage/time/refreshes.h"

namespace stage {
namespace {

constexpr std::int64_t kSecond = std::chrono::microseconds(std::chrono::seconds(1)).count();

}  // namespace

Moment Refreshes::Last() const { return platform_.LastFrame().value_or(At(LastNumber())); }

Moment Refreshes::Next() const {
  if (const auto told = platform_.LastFrame()) return *told + At(5) / 4;
  return At(LastNumber() + 1);
}

std::int64_t Refreshes::LastNumber() const {
  return platform_.Now().count() * platform_.RefreshRate() / kSecond;
}

Moment Refreshes::At(std::int64_t number) const {
  const int rate = platform_.RefreshRate();
  return Moment((number * kSecond + rate - 1) / rate);
}

}  // namespace stage
