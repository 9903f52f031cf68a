#include "stage/scalars.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace stage {
namespace {

template <class Whole, class Raw>
Whole Nearest(Double value) {
  const Double whole = std::nearbyint(value);
  if (!(whole >= std::numeric_limits<Raw>::min() && whole <= std::numeric_limits<Raw>::max())) {
    throw RuntimeError("overflow");
  }
  return static_cast<std::int64_t>(whole);
}

bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

Integer CInt(Double value) { return Nearest<Integer, std::int16_t>(value); }
Long CLng(Double value) { return Nearest<Long, std::int32_t>(value); }
Double Int(Double value) { return std::floor(value); }

Double Val(std::string_view text) {
  std::string number;  // with its sign
  bool point = false;
  for (const char c : text) {
    if (IsBlank(c)) continue;
    if (number.empty()) {
      const bool sign = c == '-' || c == '+';
      number = c == '-' ? '-' : '+';
      if (sign) continue;
    }
    const bool first_point = c == '.' && !point;
    if (!first_point && !IsDigit(c)) break;
    point = point || first_point;
    number += c;
  }
  return std::strtod(number.c_str(), nullptr);
}

std::string DecimalText(Double value) {
  constexpr int kMostDecimals = 1074;
  std::array<char, 1400> digits{};
  int length = 0;
  for (int decimals = 0; decimals <= kMostDecimals; ++decimals) {
    length = std::snprintf(digits.data(), digits.size(), "%.*f", decimals, value);
    if (std::strtod(digits.data(), nullptr) == value) break;
  }
  return {digits.data(), static_cast<std::size_t>(length)};
}

}  // namespace stage
