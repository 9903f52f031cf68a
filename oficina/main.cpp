// korvane-oficina [FILE|ADDRESS]: the workshop for levels on the machine at hand. An address begins with '#'.
#include <exception>
#include <string>

#include "assets/assets.h"
#include "oficina/oficina.h"
#include "stage/machines/machine.h"

int main(int count, char** arguments) {
  try {
    const auto maquina = stage::MakePlatform("Oficina do Korvane", "korvane");
    oficina::Oficina(*maquina, korvane::Assets(), count > 1 ? arguments[1] : "").Corre();
    return 0;
  } catch (const std::exception& error) {
    stage::machine::TellTheEnd(std::string("korvane-oficina: ") + error.what());
    return 1;
  }
}
