// korvane-level check FILE... | draw FILE.sav PICTURE.png [--screen WxH] | make MAP.txt [FILE.sav]
#include <charconv>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <vector>

#include "levels/level_file.h"
#include "oficina/desenho/check.h"
#include "oficina/desenho/map.h"
#include "stage/files/path_text.h"
#include "stage/files/text_file.h"
#include "stage/machines/machine.h"
#include "tools/level/draw.h"

namespace {

constexpr int kBad = 1;
constexpr int kUsage = 2;

using Words = std::vector<std::string>;

int Usage() {
  std::cerr << "korvane-level check FILE...\n"
               "korvane-level draw FILE.sav PICTURE.png [--screen WxH]\n"
               "korvane-level make MAP.txt [FILE.sav]\n";
  return kUsage;
}

int CheckAll(const Words& files) {
  int result = 0;
  for (const std::string& file : files) {
    std::string bad;
    try {
      const desenho::Verdict verdict = desenho::Check(korvane::LevelText(stage::PathOf(file)));
      if (!verdict.fault) {
        std::cout << verdict.Text() << '\n';
        continue;
      }
      bad = verdict.Text();
    } catch (const stage::RuntimeError&) {
      bad = "cannot be read";
    }
    std::cout << file << ": " << bad << '\n';
    result = kBad;
  }
  return result;
}

/// "1920x1080", each side up to 8192 pixels.
std::optional<stage::PixelSize> SizeOf(std::string_view text) {
  constexpr int kLargest = 8192;
  stage::PixelSize size;
  const char* const end = text.data() + text.size();
  const auto width = std::from_chars(text.data(), end, size.width);
  if (width.ec != std::errc() || width.ptr == end || *width.ptr != 'x') return std::nullopt;
  const auto height = std::from_chars(width.ptr + 1, end, size.height);
  if (height.ec != std::errc() || height.ptr != end) return std::nullopt;
  if (std::min(size.width, size.height) < 1 || std::max(size.width, size.height) > kLargest)
    return std::nullopt;
  return size;
}

int Draw(const Words& words) {
  const bool sized = words.size() == 4 && words[2] == "--screen";
  if (words.size() != 2 && !sized) return Usage();
  const auto display = sized ? SizeOf(words[3]) : stage::PixelSize{800, 600};
  if (!display) return Usage();
  const std::string text = korvane::LevelText(stage::PathOf(words[0]));
  if (const auto fault = desenho::Check(text).fault) std::cerr << words[0] << ": " << fault->Text() << '\n';
  level::Draw(text, stage::PathOf(words[1]), *display);
  return 0;
}

int Make(const Words& words) {
  if (words.size() > 2) return Usage();
  const std::string level = desenho::SavFromMap(korvane::LevelText(stage::PathOf(words[0])));
  if (words.size() == 2) {
    stage::WriteWhole(stage::PathOf(words[1]), level);
    return 0;
  }
  stage::machine::WriteOutputAsIs();
  std::cout << level << std::flush;
  if (!std::cout) throw std::runtime_error("cannot write the level");
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  Words words(arguments + 1, arguments + count);
  if (words.size() < 2) return Usage();
  const std::string verb = words.front();
  words.erase(words.begin());
  try {
    if (verb == "check") return CheckAll(words);
    if (verb == "draw") return Draw(words);
    if (verb == "make") return Make(words);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return kBad;
  }
  return Usage();
}
