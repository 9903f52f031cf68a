// The words of a script's line.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "stage/scalars.h"

namespace replay {

std::vector<std::string> Words(const std::string& text);
/// The number that a word says. Raises std::runtime_error.
stage::Double WordAsNumber(std::string_view word);
/// The numbers of a line, between `least` and `most` of them. Raises std::runtime_error.
std::vector<stage::Double> Numbers(const std::string& text, std::size_t least, std::size_t most);

}  // namespace replay
