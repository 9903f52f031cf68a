// The configuration file, which keeps one number between runs.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "stage/stage.h"

namespace korvane {

/// The value of a key, at most 254 characters; empty if there is none.
std::string LeIni(std::string_view section, std::string_view key, const std::filesystem::path& file);
/// Stores the value of a key. What cannot be written is said in one line on stderr, unless there is no folder
/// to keep anything in, which the records have said before.
void GravaIni(std::string_view section, std::string_view key, std::string_view value,
              const std::filesystem::path& file);

}  // namespace korvane
