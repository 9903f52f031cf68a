// Writers of levels and drafts that are killed at random moments.
#pragma once

#include <filesystem>

namespace tools {

/// Draws, keeps the draft and saves now and then, turn by turn from `first` on, until it is killed.
[[noreturn]] void WriteDrawings(const std::filesystem::path& folder, int first);

/// Has such a writer killed so many times, and looks at the folder after each. False at the first time that
/// what was saved is gone, or more than the last turn of what was drawn.
bool KillDrawings(int times);

}  // namespace tools
