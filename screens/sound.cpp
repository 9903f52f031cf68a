#include "core/game.h"
#include "stage/files/text_file.h"

namespace korvane {

void game::sound(std::string_view swave) {
  Palco.sndPlaySoundA(stage::HostPath(Caminho, "sons\\" + std::string(swave)));
}

}  // namespace korvane
