// What a fuzzer holds to be true of every input.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string_view>

namespace fuzz {

inline void Require(bool holds, const char* what) {
  if (holds) return;
  std::cerr << "does not hold: " << what << '\n';
  std::abort();
}

inline std::string_view Text(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

}  // namespace fuzz
