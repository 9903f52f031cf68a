// Initialisation files: sections in brackets, keys with values. Names are found whatever their case.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace stage {

/// The value of a key, cut to `size` - 1 characters; `fallback` if the file, the section or the key does not
/// exist.
std::string GetPrivateProfileStringA(std::string_view section, std::string_view key,
                                     std::string_view fallback, std::size_t size,
                                     const std::filesystem::path& file);

/// Puts a value into the file, making the file, the section and the key as needed; every other byte stays.
/// Raises RuntimeError if the file cannot be written.
void WritePrivateProfileStringA(std::string_view section, std::string_view key, std::string_view value,
                                const std::filesystem::path& file);

/// The value of a key in the text of a file, if it is there.
std::optional<std::string_view> FindProfileValue(std::string_view text, std::string_view section,
                                                 std::string_view key);
std::string WithProfileValue(std::string_view text, std::string_view section, std::string_view key,
                             std::string_view value);

}  // namespace stage
