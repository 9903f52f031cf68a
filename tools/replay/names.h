// The state of the game by name, to be read and written by scripts.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/game.h"

namespace replay {

/// A value with a name. What cannot be written has no `write`.
struct Name {
  std::string name;
  std::function<std::string()> read;  // as JSON
  std::function<void(std::string_view)> write =
      nullptr;  // raises std::runtime_error for text that does not fit
};

/// All names of one game: its variables, its controls and their properties, its timers. What it gives out
/// reads and writes only while it lives.
class Names {
 public:
  explicit Names(korvane::game& form);

  /// Names that belong to a whole state, in its order.
  const std::vector<Name>& Parts() const { return parts_; }
  /// Raises std::runtime_error if there is no such name. Knows also what a whole state does not tell by
  /// itself: single elements and single properties.
  Name Find(std::string_view name) const;
  stage::Timer* FindTimer(std::string_view name) const;

 private:
  template <class Value>
  void AddVariable(std::string name, Value& variable);
  void AddGame();
  void AddShared();
  void AddControls();
  void AddTimers();

  Name PropertyOf(std::string_view owner, std::string_view property) const;
  Name ElementOf(std::string_view array, stage::Integer index) const;
  stage::Control* FindControl(std::string_view name) const;
  std::string AllBlocks() const;

  korvane::game& form_;
  std::vector<Name> parts_;
  std::vector<std::pair<std::string, stage::Timer*>> timers_;
};

}  // namespace replay
