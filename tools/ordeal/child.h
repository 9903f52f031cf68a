// A second copy of the running program, which can be killed.
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace tools {

class Child {
 public:
  /// Runs with these words, with what it writes to its standard output kept for Read. Raises
  /// std::runtime_error.
  explicit Child(const std::vector<std::string>& words);
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;
  /// Kills it.
  ~Child();

  /// Ends it at once, whatever it does, and waits until it is gone.
  void Kill();
  /// Waits for so many bytes that it has written; false if it is gone without them.
  bool Read(void* bytes, std::size_t count);

 private:
  struct Process;

  std::unique_ptr<Process> process_;
};

}  // namespace tools
