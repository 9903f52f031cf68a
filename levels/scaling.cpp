// Numbers of the reference screen, 12000 by 9000, become those of the screen at hand.
#include <algorithm>
#include <cctype>
#include <optional>
#include <string>

#include "core/game.h"

namespace korvane {
namespace {

enum class Sentido { Alto, Largo };

std::optional<Sentido> SentidoDe(std::string_view oque) {
  std::string chave(oque);
  std::transform(chave.begin(), chave.end(), chave.begin(),
                 [](unsigned char c) { return char(std::tolower(c)); });
  if (chave == "top" || chave == "height") return Sentido::Alto;
  if (chave == "left" || chave == "width") return Sentido::Largo;
  return std::nullopt;
}

}  // namespace

Integer game::Redimensionar(std::string_view oque, Integer valor) const {
  constexpr Double kLarguraReferencia = 12000;
  constexpr Double kAlturaReferencia = 9000;
  const std::optional<Sentido> sentido = SentidoDe(oque);
  if (!sentido) return 0;
  if (*sentido == Sentido::Alto) return CInt(Palco.Screen.Height / kAlturaReferencia * valor);
  return CInt(Palco.Screen.Width / kLarguraReferencia * valor);
}

}  // namespace korvane
