// What the stage asks of the system below it, beside what the standard library knows.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "stage/scalars.h"

namespace stage::machine {

/// See stage::ReadStart; others may replace the file meanwhile.
std::string ReadStart(const std::filesystem::path& file, std::size_t most);
/// See stage::WriteWhole; `file` is no link, and nothing or a plain file that may be written.
void Replace(const std::filesystem::path& file, std::string_view bytes);

/// The folder that the running program lies in.
std::filesystem::path OwnFolder();
/// The folder that holds what a user's programs keep; empty if there is none.
std::filesystem::path DataHome();
/// A folder that nothing can be kept in.
std::filesystem::path Nowhere();
/// For its owner alone. False if it cannot be made, or is there.
bool MakePrivateFolder(const std::filesystem::path& folder);

/// Seconds since midnight by the system's clock, as fine as it can be read.
Double SecondsOfDay();

/// What is written to the standard output arrives byte by byte.
void WriteOutputAsIs();
/// The line that ends the program, shown where its user looks.
void TellTheEnd(const std::string& line);

}  // namespace stage::machine
