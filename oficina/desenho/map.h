// Levels drawn in a text editor.
//
// A map is a few header lines, a line "map:", then the grid with one character per cell:
//
//   name: TEXT        required, 1 to 60 bytes
//   barred: CODE      bonus that never falls in this level: 1 to 8, 10 for all; 0 (default) for none
//   blink: CHAR MS    character of the blocks that blink, and their period, 500 to 60000 ms
//   cell: W H         step of the grid, 120 to 3000 design units each way; default 490 260
//   gap: G            black space between neighbours, 0 to 60 units; default 10
//   columns: N        cells across, 1 to 95; default as many as the field holds
//   origin: X Y       top left corner of the grid; default centred across, 760 down
//
// In the grid, 'a' to 's' are the plain blocks 1 to 19, '#' the hard one, '?' the unseen one, 'v' the
// pale olive one; '.' and blank are empty. '-' widens the block on its left by a cell; '|' lengthens the
// block above, repeated at its full width ("|--" under "a--"). A row that starts with '>' lies half a cell
// to the right.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "oficina/desenho/desenho.h"

namespace desenho {

/// A fault in a map; what() reads "line N: why", with lines counted from 1.
class MapError : public std::runtime_error {
 public:
  MapError(std::size_t line, const std::string& why);
};

struct Mapa {
  std::string nome;
  Desenho desenho;
};

/// The level that a map draws, the lowest block last. Raises MapError on an unknown or repeated header, a
/// value out of range, an unknown character in the grid, a block outside the field, no block that a plain
/// ball can remove, or too many blocks.
Mapa LeMapa(std::string_view text);

/// The same as the text of a .sav file: one record a line, each line ended.
std::string SavFromMap(std::string_view text);

/// The map of a valid drawing: LeMapa gives the same blocks and, where a type blinks, the same rule. None if
/// no single grid holds them, if one lies where a map reaches no more, or if `nome` cannot be the name of a
/// map.
std::optional<std::string> MapaDe(const Desenho& desenho, std::string_view nome);

}  // namespace desenho
