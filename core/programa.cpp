#include "core/programa.h"

#include "screens/FrmAbertura.h"

namespace korvane {

void Programa::Corre() {
  try {
    FrmAbertura.Show();
    Palco.Run();
  } catch (const stage::ProgramEnd&) {
    return;
  }
}

}  // namespace korvane
