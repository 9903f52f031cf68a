#include "tools/replay/json.h"

#include <array>
#include <charconv>
#include <cstdio>

namespace replay {

std::string Json(stage::Double value) {
  std::array<char, 32> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value);
  return {digits.data(), end.ptr};
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
