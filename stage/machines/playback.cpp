#include "stage/machines/playback.h"

#include <algorithm>

namespace stage {

void Playback::Start(std::span<const std::int16_t> sound) {
  const std::lock_guard lock(mutex_);
  if (heard_ > 0) {
    std::array<int, kFade> leaving{};
    std::copy(leaving_.begin() + std::ptrdiff_t(left_), leaving_.end(), leaving.begin());
    const auto rest = sound_.subspan(heard_, std::min(sound_.size() - heard_, kFade));
    for (std::size_t i = 0; i < rest.size(); ++i) leaving[i] += rest[i] * int(kFade - i) / int(kFade);
    leaving_ = leaving;
    left_ = 0;
  }
  sound_ = sound;
  heard_ = 0;
}

void Playback::Fill(std::span<std::int16_t> samples) {
  const std::lock_guard lock(mutex_);
  for (std::int16_t& sample : samples) {
    int sum = 0;
    if (heard_ < sound_.size()) sum += sound_[heard_++];
    if (left_ < kFade) sum += leaving_[left_++];
    sample = static_cast<std::int16_t>(std::clamp(sum, -32768, 32767));
  }
}

}  // namespace stage
