#include "records/codepage.h"

#include <iconv.h>

#include <memory>
#include <optional>
#include <type_traits>

#include "stage/utf8.h"

namespace korvane {
namespace {

constexpr const char* kPagina = "WINDOWS-1252";
constexpr const char* kUtf8 = "UTF-8";

struct Fecha {
  void operator()(iconv_t conversao) const { iconv_close(conversao); }
};
using Conversao = std::unique_ptr<std::remove_pointer_t<iconv_t>, Fecha>;

/// One character converted; nothing if the other side lacks it.
std::optional<std::string> Converte(const char* para, const char* de, std::string caractere) {
  const Conversao conversao(iconv_open(para, de));
  std::string resultado(8, '\0');
  char* entrada = caractere.data();
  std::size_t resta = caractere.size();
  char* saida = resultado.data();
  std::size_t livre = resultado.size();
  if (iconv(conversao.get(), &entrada, &resta, &saida, &livre) == static_cast<std::size_t>(-1)) {
    return std::nullopt;
  }
  resultado.resize(resultado.size() - livre);
  return resultado;
}

}  // namespace

std::string ParaPagina(std::string_view utf8) {
  std::string bytes;
  for (const char32_t letra : stage::Characters(utf8)) {
    const char32_t guardada = letra == U'"' ? U'\'' : letra;
    bytes += Converte(kPagina, kUtf8, stage::Utf8({&guardada, 1})).value_or("?");
  }
  return bytes;
}

std::string DaPagina(std::string_view bytes) {
  std::string utf8;
  for (const char byte : bytes) utf8 += Converte(kUtf8, kPagina, std::string(1, byte)).value_or("");
  return utf8;
}

bool TemNaPagina(char32_t letra) { return Converte(kPagina, kUtf8, stage::Utf8({&letra, 1})).has_value(); }

}  // namespace korvane
