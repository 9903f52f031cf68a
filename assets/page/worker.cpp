// What the page has done beside the game, in a worker.
//   sons FOLDER       makes the sounds
//   check LEVEL       prints what korvane-level prints of it
//   make MAP LEVEL    turns a drawing into a level
#include <fstream>
#include <iostream>
#include <string_view>

#include "assets/sounds/effects.h"
#include "levels/level_file.h"
#include "oficina/desenho/check.h"
#include "oficina/desenho/map.h"

namespace {

constexpr int kBad = 1;

int MakeSounds(const std::filesystem::path& folder) {
  for (const sons::Effect& effect : sons::Effects())
    sons::WriteWav(sons::Finish(effect.recipe(), effect.loudness), folder / effect.file);
  return 0;
}

int Check(const char* level) {
  const desenho::Verdict verdict = desenho::Check(korvane::LevelText(level));
  std::cout << verdict.Text() << std::endl;
  return verdict.fault ? kBad : 0;
}

int Make(const char* map, const char* level) {
  std::ofstream(level, std::ios::binary) << desenho::SavFromMap(korvane::LevelText(map));
  return 0;
}

}  // namespace

int main(int count, char** arguments) {
  const std::string_view verb = count > 1 ? arguments[1] : "";
  try {
    if (verb == "sons" && count == 3) return MakeSounds(arguments[2]);
    if (verb == "check" && count == 3) return Check(arguments[2]);
    if (verb == "make" && count == 4) return Make(arguments[2], arguments[3]);
  } catch (const std::exception& error) {
    std::cout << error.what() << std::endl;
  }
  return kBad;
}
