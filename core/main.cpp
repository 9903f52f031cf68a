// The game on the machine at hand.
#include <iostream>

#include "assets/assets.h"
#include "core/programa.h"
#include "stage/sdl/sdl_platform.h"

int main() {
  try {
    stage::sdl::SdlPlatform platform("Korvane", "korvane");
    korvane::Programa programa(platform, korvane::Assets());
    programa.Corre();
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "korvane: " << error.what() << '\n';
    return 1;
  }
}
