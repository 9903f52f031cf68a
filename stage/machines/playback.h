// What the loudspeaker is given.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <span>

namespace stage {

/// One sound at a time, of 44100 samples a second. A new sound cuts off the old, which leaves within 4 ms
/// instead of stopping in the middle of a wave; a sound of which nothing has been heard yet is dropped at
/// once. One thread starts sounds, another fills.
class Playback {
 public:
  /// The samples must stay where they are as long as anything is filled.
  void Start(std::span<const std::int16_t> sound);
  /// What is heard next, silence after the end of a sound.
  void Fill(std::span<std::int16_t> samples);

 private:
  static constexpr std::size_t kFade = 176;  // samples, 4 ms

  std::mutex mutex_;
  std::span<const std::int16_t> sound_;
  std::size_t heard_ = 0;  // samples of the sound
  std::array<int, kFade> leaving_{};
  std::size_t left_ = kFade;  // samples of what leaves
};

}  // namespace stage
