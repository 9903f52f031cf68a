#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>

#include "assets/sounds/effects.h"
#include "assets/sounds/wave.h"
#include "stage/files/path_text.h"

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "usage: korvane-sons OUTDIR\n";
    return EXIT_FAILURE;
  }
  try {
    const std::filesystem::path directory = stage::PathOf(argv[1]);
    std::filesystem::create_directories(directory);
    for (const sons::Effect& effect : sons::Effects()) {
      sons::WriteWav(sons::Finish(effect.recipe(), effect.loudness), directory / effect.file);
    }
  } catch (const std::exception& problem) {
    std::cerr << "korvane-sons: " << problem.what() << '\n';
    return EXIT_FAILURE;
  }
  return EXIT_SUCCESS;
}
