// What is said when there is nothing to play on.
#pragma once

#include <stdexcept>
#include <string>

namespace stage::sdl {

/// There is no display to show anything on, or none any more.
class NoDisplay : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// With SDL's reason, if it has one.
NoDisplay Refusal(const std::string& what);

}  // namespace stage::sdl
