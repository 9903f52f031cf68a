// The real game on the level that is drawn.
#pragma once

#include <span>

#include "oficina/desenho/desenho.h"
#include "stage/machines/platform.h"
#include "stage/painting/picture.h"

namespace oficina {

enum class FimDaProva { kVolta, kSessaoAcabou };

/// Plays the drawing as level 1 until Esc, at the pace of the player's own game, in a folder of its own: no
/// record and no speed is written. Raises std::runtime_error if there is no room for such a folder.
FimDaProva Prova(stage::Platform& maquina, std::span<const stage::Asset> assets,
                 const desenho::Desenho& desenho);

}  // namespace oficina
