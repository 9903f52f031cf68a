// A drawing as what stands behind '#' in the address of a page.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "oficina/desenho/desenho.h"

namespace desenho {

/// Every valid drawing fits.
inline constexpr std::size_t kMaiorEndereco = 8192;

/// The drawing, exactly, in letters, digits, '-' and '_': a character for the version, the drawing, four
/// characters for a checksum. At most kMaiorEndereco bytes; a level of the game takes about three a block.
/// None if the drawing is not valid.
std::optional<std::string> EnderecoDe(const Desenho& desenho);

/// The drawing, which is valid, of an address that EnderecoDe gave; none for any other text.
std::optional<Desenho> DoEndereco(std::string_view endereco);

}  // namespace desenho
