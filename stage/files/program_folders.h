// Where the files of a program lie.
#pragma once

#include <filesystem>

namespace stage {

struct ProgramFolders {
  /// What the program writes, and what its player puts there.
  std::filesystem::path own;
  /// What is missing in `own` is read from here. Empty if the program was not installed.
  std::filesystem::path installed;
};

/// A program in `PREFIX/games` or the like, without its files beside it, was installed for all users if
/// `PREFIX/share/games/NAME` is there. It has a folder NAME of its player's own in `data_home`, which is made
/// here with the same folders in it. Any other program lies in its own folder.
ProgramFolders FindProgramFolders(const std::filesystem::path& program, const std::filesystem::path& name,
                                  const std::filesystem::path& data_home);

/// The file to read for one that is named in the program's own folder.
std::filesystem::path FileToRead(const ProgramFolders& folders, const std::filesystem::path& file);

}  // namespace stage
