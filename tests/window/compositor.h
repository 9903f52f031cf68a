// A Wayland compositor on a desktop of its own, which shows there what it is shown and passes on what the
// hand does.
#pragma once

#include <string>
#include <vector>

#include "tests/window/desktop.h"

namespace tests {

class Compositor {
 public:
  /// Has one display that fills the desktop, of this many pixels to a point. Keys type what they do in the
  /// layout.
  Compositor(const Desktop& desktop, const std::string& scale, const std::string& layout = "us",
             const std::string& variant = "");

  /// Empty if it runs, else what it had to say.
  const std::string& Complaint() const { return complaint_; }
  /// For a program that is to be seen on it and nowhere else.
  std::vector<std::string> Environment() const;
  /// A command of the compositor's own.
  void Do(const std::string& command) const;
  void Signal(int signal) const { process_.Signal(signal); }

 private:
  std::string Socket(const std::string& start, const std::string& end) const;

  stage::TempFolder folder_;
  Process process_;
  std::string complaint_;
};

}  // namespace tests
