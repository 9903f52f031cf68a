// Makes new inputs for what reads files from those kept for it.
#pragma once

#include <array>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace tools {

/// The same inputs in the same order from the same kept ones, on every machine.
class Mutator {
 public:
  /// `kept` must not be empty and has to outlive the mutator.
  explicit Mutator(const std::vector<std::string>& kept, std::uint32_t seed = 2'600'000)
      : kept_(kept), random_(seed) {}

  /// A kept input, changed in one to four places.
  std::string Next() {
    std::string input = Kept();
    for (std::size_t changes = 1 + Below(4); changes > 0; --changes) Change(input);
    return input;
  }

 private:
  // What the readers look for, and numbers at the ends of their ranges.
  static constexpr std::array<std::string_view, 16> kWords = {
      "\"",    ",", "\r\n", "\n", " ",    "-", ".5", "0", "32768", "-2147483649", "99999999999999999999",
      "pisca", "[", "]",    "=",  "Vkorv"};

  std::size_t Below(std::size_t limit) { return random_() % limit; }
  const std::string& Kept() { return kept_[Below(kept_.size())]; }

  void Change(std::string& input) {
    const std::size_t from = Below(input.size() + 1);
    const std::size_t length = Below(input.size() - from + 1);
    switch (Below(6)) {
      case 0:
        input.insert(from, kWords[Below(kWords.size())]);
        break;
      case 1:
        input.insert(from, 1, char(Below(256)));
        break;
      case 2:
        input.erase(from, length);
        break;
      case 3:
        input.insert(from, input.substr(from, length));
        break;
      case 4:
        input.replace(from, length, Kept());
        break;
      default:
        if (from < input.size()) input[from] = char(Below(256));
    }
  }

  const std::vector<std::string>& kept_;
  std::mt19937 random_;
};

}  // namespace tools
