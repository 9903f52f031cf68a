#include "core/programa.h"

#include "core/game.h"
#include "screens/FrmAbertura.h"

namespace korvane {

namespace {

template <class Inicio>
void AteOFim(stage::Stage& palco, const Inicio& comeca) {
  try {
    comeca();
    palco.Run();
  } catch (const stage::ProgramEnd&) {
    return;
  }
}

}  // namespace

void Programa::Corre() {
  AteOFim(Palco, [this] { FrmAbertura.Show(); });
}

void Programa::CorreProva() {
  Module1.Prova = true;
  AteOFim(Palco, [this] { game.Load(); });
}

}  // namespace korvane
