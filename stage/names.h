// Names that are found whatever their case.
#pragma once

#include <algorithm>
#include <cctype>
#include <string_view>

namespace stage {

inline bool SameName(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

}  // namespace stage
