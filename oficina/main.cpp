// korvane-oficina [FILE]: the workshop for levels on the machine at hand.
#include <exception>
#include <string>

#include "assets/assets.h"
#include "oficina/oficina.h"
#include "stage/files/path_text.h"
#include "stage/machines/machine.h"

int main(int count, char** arguments) {
  try {
    const auto arquivo = count > 1 ? stage::PathOf(arguments[1]) : std::filesystem::path();
    const auto maquina = stage::MakePlatform("Korvane", "korvane");
    oficina::Oficina(*maquina, korvane::Assets(), arquivo).Corre();
    return 0;
  } catch (const std::exception& error) {
    stage::machine::TellTheEnd(std::string("korvane-oficina: ") + error.what());
    return 1;
  }
}
