#include "stage/files/program_folders.h"

#include <algorithm>
#include <vector>

#include "stage/machines/machine.h"

namespace stage {
namespace {

using std::filesystem::path;

/// The names of the folders in a folder.
std::vector<path> FoldersIn(const path& folder) {
  std::vector<path> names;
  std::error_code error;
  std::error_code unknown;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (entry->is_directory(unknown)) names.push_back(entry->path().filename());
  }
  return names;
}

/// Makes a folder and those that it lies in, for its owner alone. What cannot be made shows when it is used.
void MakePrivate(const path& folder) {
  path made;
  for (const path& part : folder) {
    made /= part;
    machine::MakePrivateFolder(made);
  }
}

}  // namespace

ProgramFolders FindProgramFolders(const path& program, const path& name, const path& data_home) {
  const path installed = (program / ".." / "share" / "games" / name).lexically_normal();
  const std::vector<path> names = FoldersIn(installed);
  std::error_code error;
  const auto lies_beside = [&](const path& folder) {
    return std::filesystem::exists(program / folder, error);
  };
  if (names.empty() || std::any_of(names.begin(), names.end(), lies_beside)) return {program, {}};
  const path own = (data_home.empty() ? machine::Nowhere() : data_home) / name;
  for (const path& folder : names) MakePrivate(own / folder);
  return {own, installed};
}

path FileToRead(const ProgramFolders& folders, const path& file) {
  std::error_code error;
  if (folders.installed.empty() || std::filesystem::exists(file, error)) return file;
  const path name = file.lexically_relative(folders.own);
  if (name.empty() || *name.begin() == "..") return file;
  const path installed = folders.installed / name;
  return std::filesystem::exists(installed, error) ? installed : file;
}

}  // namespace stage
