// The file that keeps the ten records: name and score of each row, a line each, one byte to a character.
#pragma once

#include <string>
#include <string_view>

#include "core/Module1.h"

namespace korvane {

/// Fills the table from the file, which is made if it is missing or empty. A damaged file gives the rows up
/// to the damage.
void Getrecords(Module1& modulo);

/// Puts the whole table in the place of the file. A file that is damaged, or that another copy of the game
/// has put a record in, is kept beside it as kv_his.old. What cannot be written is said in one line on
/// stderr.
void GravaRecords(Module1& modulo);

/// Fills the table from the text of a records file. Raises RuntimeError at the first damage; what stands
/// before it is in the table then, the name of a row whose score is damaged too.
void LeTabela(Module1& modulo, std::string_view bytes);
std::string TextoDaTabela(Module1& modulo);

}  // namespace korvane
