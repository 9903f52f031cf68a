#include "tools/replay/words.h"

#include <cstdlib>
#include <sstream>
#include <stdexcept>

namespace replay {

using stage::Double;

std::vector<std::string> Words(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

Double WordAsNumber(std::string_view word) {
  const std::string text(word);
  char* end = nullptr;
  const Double value = std::strtod(text.c_str(), &end);
  const bool whole = end == text.c_str() + text.size();
  if (text.find_first_not_of("+-.0123456789e") != std::string::npos || text.empty() || !whole)
    throw std::runtime_error("not a number: " + text);
  return value;
}

std::vector<Double> Numbers(const std::string& text, std::size_t least, std::size_t most) {
  std::vector<Double> numbers;
  for (const std::string& word : Words(text)) numbers.push_back(WordAsNumber(word));
  if (numbers.size() < least || numbers.size() > most) throw std::runtime_error("wrong number of values");
  return numbers;
}

}  // namespace replay
