// Numbers of the reference screen, 12000 by 9000, become those of the screen at hand.
#include <algorithm>
#include <cctype>
#include <string>

#include "core/game.h"

namespace korvane {

Integer game::Redimensionar(std::string_view oque, Integer valor) const {
  constexpr Double kLarguraReferencia = 12000;
  constexpr Double kAlturaReferencia = 9000;
  std::string chave(oque);
  std::transform(chave.begin(), chave.end(), chave.begin(),
                 [](unsigned char c) { return char(std::tolower(c)); });
  if (chave == "top" || chave == "height") return CInt(Palco.Screen.Height / kAlturaReferencia * valor);
  if (chave == "left" || chave == "width") return CInt(Palco.Screen.Width / kLarguraReferencia * valor);
  return 0;
}

}  // namespace korvane
