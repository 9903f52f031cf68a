// The program: its stage, what its forms share, and the six forms by their names.
#pragma once

#include "core/Module1.h"
#include "stage/stage.h"

namespace korvane {

class FrmAbertura;
class game;
class pause;
class FrmHelp;
class FrmEntrarecord;
class FrmMostraRecords;

struct Programa {
  template <class AForm>
  using Nome = stage::FormName<AForm, Programa>;

  Programa(stage::Platform& platform, std::span<const stage::Asset> assets)
      : Palco(platform, assets, "Korvane") {}

  stage::Stage Palco;
  korvane::Module1 Module1;

  Nome<korvane::FrmAbertura> FrmAbertura{Palco, *this};
  Nome<korvane::game> game{Palco, *this};
  Nome<korvane::pause> pause{Palco, *this};
  Nome<korvane::FrmHelp> FrmHelp{Palco, *this};
  Nome<korvane::FrmEntrarecord> FrmEntrarecord{Palco, *this};
  Nome<korvane::FrmMostraRecords> FrmMostraRecords{Palco, *this};

  /// Runs the program from its opening form to its end. An error that nothing handles comes out as
  /// RuntimeError.
  void Corre();
  /// The same for a level that is tried: play comes up at once, and Esc ends it.
  void CorreProva();
};

}  // namespace korvane
