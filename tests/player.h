// A player in front of modal forms: one move each time the program waits.
#pragma once

#include <gtest/gtest.h>

#include "tests/mesa.h"

namespace tests {

using Move = std::function<void()>;

/// Runs `act` to its end, which must come when the moves are used up and not before.
inline void Play(Mesa& mesa, std::vector<Move> moves, const Move& act) {
  struct Stuck {};
  std::size_t next = 0;
  mesa.platform->Director = [&] {
    if (next == moves.size()) throw Stuck{};
    moves[next++]();
  };
  try {
    act();
    EXPECT_EQ(next, moves.size()) << "moves that were not waited for";
  } catch (const Stuck&) {
    ADD_FAILURE() << "waits at " << mesa.FormName() << " when all moves are made";
  }
  mesa.platform->Director = nullptr;
}

/// All controls of one kind, from the lowest layer up, those in picture boxes included.
template <class Kind>
std::vector<Kind*> All(const stage::Container& container) {
  std::vector<Kind*> found;
  for (stage::Control* control : container.Layers()) {
    if (auto* const kind = dynamic_cast<Kind*>(control)) found.push_back(kind);
    if (const auto* const box = dynamic_cast<stage::PictureBox*>(control)) {
      for (Kind* const inner : All<Kind>(*box)) found.push_back(inner);
    }
  }
  return found;
}

}  // namespace tests
