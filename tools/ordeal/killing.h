// What the tests that kill writers have in common.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <filesystem>
#include <iostream>
#include <random>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "tools/ordeal/child.h"

namespace tools {

/// Tells whoever started this program how far it has come.
template <class Told>
void Tell(const Told& told) {
  std::cout.write(reinterpret_cast<const char*>(&told), sizeof told).flush();
  if (!std::cout) throw std::runtime_error("nobody listens");
}

/// A copy of the program that tells of its work.
template <class Told>
class Victim {
 public:
  /// Is at work already.
  explicit Victim(const std::vector<std::string>& words) : child_(words) {
    if (!child_.Read(&told_, sizeof told_)) throw std::runtime_error("a writer did not begin");
  }

  void Kill() {
    child_.Kill();
    while (child_.Read(&told_, sizeof told_)) {
    }
  }
  /// What was told last.
  const Told& Has() const { return told_; }

 private:
  Child child_;
  Told told_{};
};

/// Waits as long as a writer may live.
inline void LetLive(std::mt19937& any, std::chrono::microseconds longest) {
  std::this_thread::sleep_for(
      std::chrono::microseconds(std::uniform_int_distribution<std::int64_t>(0, longest.count())(any)));
}

inline std::ptrdiff_t FilesUnderWay(const std::filesystem::path& folder) {
  return std::count_if(std::filesystem::directory_iterator(folder), {},
                       [](const auto& entry) { return entry.path().extension() == ".tmp"; });
}

}  // namespace tools
