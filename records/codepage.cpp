#include "records/codepage.h"

#include <algorithm>
#include <array>
#include <optional>

#include "stage/files/utf8.h"

namespace korvane {
namespace {

constexpr unsigned char kPrimeiro = 0x80;
/// Characters of the bytes 80 to 9F, 0 for none. Every other byte stands for the character of its own number.
constexpr std::array<char32_t, 32> kLetras{0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                           0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                           0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                           0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

std::optional<unsigned char> ByteDe(char32_t letra) {
  const auto lugar = letra == 0 ? kLetras.end() : std::find(kLetras.begin(), kLetras.end(), letra);
  if (lugar != kLetras.end()) return static_cast<unsigned char>(kPrimeiro + (lugar - kLetras.begin()));
  const bool mesmo = letra < kPrimeiro || (letra >= kPrimeiro + kLetras.size() && letra <= 0xFF);
  return mesmo ? std::optional(static_cast<unsigned char>(letra)) : std::nullopt;
}

}  // namespace

std::string ParaPagina(std::string_view utf8) {
  std::string bytes;
  for (const char32_t letra : stage::Characters(utf8)) {
    bytes += static_cast<char>(ByteDe(letra == U'"' ? U'\'' : letra).value_or('?'));
  }
  return bytes;
}

std::string DaPagina(std::string_view bytes) {
  std::u32string letras;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    const bool alto = byte >= kPrimeiro && byte < kPrimeiro + kLetras.size();
    const char32_t letra = alto ? kLetras[std::size_t(byte) - kPrimeiro] : byte;
    if (letra != 0 || byte == 0) letras += letra;
  }
  return stage::Utf8(letras);
}

bool TemNaPagina(char32_t letra) { return ByteDe(letra).has_value(); }

}  // namespace korvane
