#include "core/game.h"

namespace korvane {

void game::sound(std::string_view swave) { Palco.sndPlaySoundA(Caminho + "\\sons\\" + std::string(swave)); }

}  // namespace korvane
