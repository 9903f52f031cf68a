#include "tools/replay/json.h"

#include <array>
#include <cstdio>
#include <cstdlib>

namespace replay {

std::string Json(stage::Double value) {
  constexpr int kMostDecimals = 16;
  std::array<char, 32> digits{};
  int length = 0;
  for (int decimals = 0; decimals <= kMostDecimals; ++decimals) {
    length = std::snprintf(digits.data(), digits.size(), "%.*e", decimals, value);
    if (std::strtod(digits.data(), nullptr) == value) break;
  }
  const std::string with_exponent(digits.data(), static_cast<std::size_t>(length));
  const std::string plain = stage::DecimalText(value);
  return with_exponent.size() < plain.size() ? with_exponent : plain;
}

std::string Json(std::string_view text) {
  std::string json = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      json += '\\';
      json += c;
    } else if (static_cast<unsigned char>(c) < 0x20) {
      std::array<char, 8> code{};
      (void)std::snprintf(code.data(), code.size(), "\\u%04x", static_cast<unsigned>(c));
      json += code.data();
    } else {
      json += c;
    }
  }
  return json + '"';
}

}  // namespace replay
