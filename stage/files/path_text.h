// File names as text. All text of the program is UTF-8, whatever the machine's own names are made of; a name
// that is none is nobody's on purpose, and is kept as it is where the machine lets it be.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace stage {

inline std::filesystem::path PathOf(std::string_view text) { return std::u8string(text.begin(), text.end()); }

inline std::string TextOf(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

}  // namespace stage
