// A folder of its own for a run that must not leave anything behind.
#pragma once

#include <filesystem>
#include <random>
#include <stdexcept>
#include <string>

#include "stage/files/path_text.h"
#include "stage/machines/machine.h"

namespace stage {

class TempFolder {
 public:
  /// Its name begins with `name`. Raises std::runtime_error if no folder can be made.
  explicit TempFolder(const std::string& name = "korvane") {
    constexpr int kMostTries = 100;
    std::random_device any;
    for (int tries = 0; tries < kMostTries; ++tries) {
      path_ = std::filesystem::temp_directory_path() / PathOf(name + '-' + std::to_string(any()));
      if (machine::MakePrivateFolder(path_)) return;
    }
    throw std::runtime_error("cannot make a temporary folder");
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

}  // namespace stage
