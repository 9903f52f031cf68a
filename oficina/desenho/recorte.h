// Blocks on the clipboard: as text, the records that they are in a level file.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "oficina/desenho/edicao.h"

namespace desenho {

std::string Recorte(const Desenho& desenho, const Escolha& escolha);

/// The blocks of a text that somebody copied, for Poe; a rule among them is passed over. None if the text is
/// anything else than records of a level, or has no block.
std::optional<std::vector<Block>> DoRecorte(std::string_view texto);

}  // namespace desenho
