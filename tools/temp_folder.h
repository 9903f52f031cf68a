// A folder of its own for a run that must not leave anything behind.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace tools {

class TempFolder {
 public:
  /// Raises std::runtime_error if no folder can be made.
  TempFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "korvane-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("cannot make a temporary folder");
    path_ = name;
  }
  ~TempFolder() {
    std::error_code error;
    std::filesystem::remove_all(path_, error);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& Path() const { return path_; }
  /// Copies the folders that a program's folder holds from the start.
  void TakeProgramFolders(const std::filesystem::path& from) const {
    for (const char* folder : {"levels", "sons"}) {
      if (!std::filesystem::exists(from / folder)) continue;
      std::filesystem::copy(from / folder, path_ / folder, std::filesystem::copy_options::recursive);
    }
  }

 private:
  std::filesystem::path path_;
};

/// The folder that the running program lies in.
inline std::filesystem::path OwnFolder() {
  return std::filesystem::read_symlink("/proc/self/exe").parent_path();
}

}  // namespace tools
