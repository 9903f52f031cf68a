// Names as the records file keeps them: Windows-1252, one byte to a character.
#pragma once

#include <string>
#include <string_view>

namespace korvane {

/// A character that the code page lacks becomes '?', a double quote an apostrophe.
std::string ParaPagina(std::string_view utf8);
/// Bytes that stand for nothing are left out.
std::string DaPagina(std::string_view bytes);
/// Whether a name can hold the character.
bool TemNaPagina(char32_t letra);

}  // namespace korvane
