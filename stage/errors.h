// Statements that fail, and what runs on after them.
#pragma once

#include <stdexcept>

namespace stage {

/// A statement that failed: a number out of range, a control that does not exist, a file that cannot be read.
class RuntimeError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Runs each statement in turn; one that raises RuntimeError is dropped and the next one runs.
template <class... Statements>
void ResumeNext(Statements&&... statements) {
  const auto attempt = [](auto&& statement) {
    try {
      statement();
    } catch (const RuntimeError&) {
      return;
    }
  };
  (attempt(statements), ...);
}

}  // namespace stage
