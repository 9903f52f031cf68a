#include "stage/files/utf8.h"

#include <array>
#include <cstdint>

namespace stage {
namespace {

struct Shape {
  unsigned mask;     // of the first byte, bits that tell the length
  unsigned lead;     // their value
  std::size_t more;  // bytes that follow
  char32_t least;    // the lowest character written at this length
};
constexpr std::array<Shape, 4> kShapes{
    {{0x80, 0x00, 0, 0}, {0xE0, 0xC0, 1, 0x80}, {0xF0, 0xE0, 2, 0x800}, {0xF8, 0xF0, 3, 0x10000}}};

unsigned Byte(char c) { return static_cast<unsigned char>(c); }
bool Follows(char c) { return (Byte(c) & 0xC0U) == 0x80U; }

/// The character at the front of `bytes`, which is shortened by it; by one byte if there is none.
bool Take(std::string_view& bytes, char32_t& character) {
  for (const Shape& shape : kShapes) {
    if ((Byte(bytes[0]) & shape.mask) != shape.lead || bytes.size() <= shape.more) continue;
    character = Byte(bytes[0]) & ~shape.mask & 0xFFU;
    bool whole = true;
    for (std::size_t i = 1; i <= shape.more; ++i) {
      whole = whole && Follows(bytes[i]);
      character = character << 6U | (Byte(bytes[i]) & 0x3FU);
    }
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    if (!whole || character < shape.least || character > 0x10FFFF || surrogate) break;
    bytes.remove_prefix(shape.more + 1);
    return true;
  }
  bytes.remove_prefix(1);
  return false;
}

}  // namespace

std::u32string Characters(std::string_view utf8) {
  std::u32string characters;
  char32_t character = 0;
  while (!utf8.empty()) {
    if (Take(utf8, character)) characters += character;
  }
  return characters;
}

std::string Utf8(std::u32string_view characters) {
  std::string utf8;
  for (const char32_t character : characters) {
    std::size_t length = 0;
    while (length + 1 < kShapes.size() && character >= kShapes[length + 1].least) ++length;
    const Shape& shape = kShapes[length];
    utf8 += static_cast<char>(shape.lead | character >> (6 * shape.more));
    for (std::size_t i = shape.more; i-- > 0;) {
      utf8 += static_cast<char>(0x80U | (character >> (6 * i) & 0x3FU));
    }
  }
  return utf8;
}

}  // namespace stage
