// A display server of its own, the real program on it, and a hand for the pointer and the keys.
#pragma once

#include <sys/types.h>

#include <array>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

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
  std::vector<unsigned char> bytes;

  Colour At(int x, int y) const;
  /// The middle of all pixels of a rectangle that `fits` accepts, and how many there are.
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
  Desktop(int width, int height);

  Screenshot Look() const;
  void Hand(const std::string& xdotool_words) const;
  std::vector<std::string> Environment() const { return {"DISPLAY=" + display_}; }

 private:
  std::string display_;
  Process server_;
};

/// Waits until the condition holds; false if that takes too long.
bool Eventually(const std::function<bool()>& condition);

}  // namespace tests
