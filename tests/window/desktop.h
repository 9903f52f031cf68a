// A display server of its own, the real program on it, and a hand for the pointer and the keys.
#pragma once

#include <sys/types.h>

#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "stage/files/temp_folder.h"

namespace tests {

/// A program that runs beside the test and is ended with it.
class Process {
 public:
  /// Starts a program; `environment` holds NAME=VALUE pairs on top of the test's own. Output that is named
  /// goes to a file.
  explicit Process(const std::vector<std::string>& command, const std::vector<std::string>& environment = {},
                   const std::filesystem::path& errors = {});
  ~Process();
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  /// The exit status, or -1 if the program does not end in time.
  int WaitForEnd();
  void Signal(int signal) const;

 private:
  pid_t pid_ = -1;
};

using Colour = std::array<int, 3>;

/// What the display shows.
struct Screenshot {
  int width = 0;
  int height = 0;
  std::vector<Colour> pixels;

  const Colour& At(int x, int y) const {
    return pixels[std::size_t(y) * std::size_t(width) + std::size_t(x)];
  }
  /// The middle of all pixels of a rectangle that `fits` accepts, how many there are, and the leftmost column
  /// of them.
  struct Found {
    double x = 0;
    double y = 0;
    int count = 0;
    int left = 0;
  };
  Found Find(int left, int top, int right, int bottom, const std::function<bool(const Colour&)>& fits) const;
};

class Desktop {
 public:
  Desktop(int width, int height, int depth = 24);
  ~Desktop();
  Desktop(const Desktop&) = delete;
  Desktop& operator=(const Desktop&) = delete;

  struct Pixels {
    int width;
    int height;
  };
  Pixels Size() const { return size_; }
  Screenshot Look() const;
  void Hand(const std::string& xdotool_words) const;
  /// Keys type what they do in this layout.
  void TakeLayout(const std::string& name, const std::string& variant = "") const;
  /// For a program that is to be seen here and nowhere else.
  std::vector<std::string> Environment() const { return {"DISPLAY=" + display_, "WAYLAND_DISPLAY="}; }

 private:
  class Eye;

  void Run(const std::vector<std::string>& command) const;

  Pixels size_;
  stage::TempFolder folder_;
  Process server_;
  std::string display_;
  std::unique_ptr<Eye> eye_;
};

/// Waits until the condition holds; false if that takes far too long.
bool Eventually(const std::function<bool()>& condition);

}  // namespace tests
