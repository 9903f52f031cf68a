// Records of a level file on their way into a drawing.
#pragma once

#include <vector>

#include "levels/level_file.h"
#include "oficina/desenho/desenho.h"

namespace desenho {

/// What is wrong with a block that stands in `record`; none if nothing is.
std::optional<Fault> FaltaDe(const Block& bloco, int record = 0);
/// What is wrong with a rule.
std::optional<Fault> FaltaDe(const Regra& regra, int record = 0);
Fault FaltaDe(const korvane::LevelError& erro);

/// Adds a record that is a rule to those before it, as the game does: the blinking stays if this one has
/// none. Raises LevelError, and leaves `regra` as it was, if a level must not hold it.
void SomaRegra(const korvane::LevelRecord& registro, Regra& regra);
/// Adds a record that is a block. Raises LevelError, and adds nothing, if a level must not hold it.
void SomaBloco(const korvane::LevelRecord& registro, std::vector<Block>& blocos);

}  // namespace desenho
