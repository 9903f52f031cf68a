// The game on the machine at hand.
#include <exception>
#include <string>

#include "assets/assets.h"
#include "core/programa.h"
#include "stage/machines/machine.h"
#include "stage/machines/platform.h"

int main() {
  try {
    const auto platform = stage::MakePlatform("Korvane", "korvane");
    korvane::Programa programa(*platform, korvane::Assets());
    programa.Corre();
    return 0;
  } catch (const std::exception& error) {
    stage::machine::TellTheEnd(std::string("korvane: ") + error.what());
    return 1;
  }
}
