// The draws behind Rnd.
#pragma once

#include <cstring>
#include <deque>
#include <random>

#include "stage/scalars.h"

namespace stage {

class Random {
 public:
  /// The next draw, 0 <= value < 1.
  Single Rnd() {
    if (!prepared_.empty()) {
      const Single next = prepared_.front();
      prepared_.pop_front();
      return next;
    }
    constexpr int kSpareBits = 8;  // a Single holds 24 bits
    return Single(generator_() >> kSpareBits) * 0x1p-24F;
  }
  /// Two that seed alike, one after the other, draw differently.
  void Randomize(Single seed) {
    if (fixed_) return;
    std::uint32_t bits = 0;
    static_assert(sizeof bits == sizeof seed);
    std::memcpy(&bits, &seed, sizeof bits);
    generator_.seed(bits ^ static_cast<std::uint32_t>(generator_()));
  }

  /// For repeatable play: seeds the draws for good; Randomize has no effect from then on.
  void Fix(std::uint32_t seed) {
    generator_.seed(seed);
    fixed_ = true;
  }
  /// For repeatable play: values that Rnd gives before any other.
  std::deque<Single>& Prepared() { return prepared_; }

 private:
  std::mt19937 generator_;
  bool fixed_ = false;
  std::deque<Single> prepared_;
};

}  // namespace stage
