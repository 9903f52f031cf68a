// Numbers of the reference screen, 12000 by 9000, become those of the screen at hand.
#include <optional>

#include "core/game.h"
#include "stage/names.h"

namespace korvane {
namespace {

enum class Sentido { Alto, Largo };

std::optional<Sentido> SentidoDe(std::string_view oque) {
  using stage::SameName;
  if (SameName(oque, "top") || SameName(oque, "height")) return Sentido::Alto;
  if (SameName(oque, "left") || SameName(oque, "width")) return Sentido::Largo;
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
