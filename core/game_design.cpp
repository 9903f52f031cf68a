// The play form as designed: places and sizes in twips, pictures, timers, and which event runs what.
#include "bonus/tabela.h"
#include "core/game.h"

namespace korvane {
namespace {

using stage::Align;
using stage::Design;
using stage::Font;
using stage::Image;
using stage::Rgb;

constexpr stage::Units kFormUnits{0.99375004F, 0.89999974F};

const Font kStatusFont{"Arial", 18, true};

/// Fills an array with pictures that are never shown themselves, `primeiro` to `ultimo`.
auto Guarda(stage::Stage& palco, std::string_view nome, int primeiro, int ultimo, bool estica) {
  return [&palco, nome, primeiro, ultimo, estica](stage::ControlArray<Image>& array) {
    for (int i = primeiro; i <= ultimo; ++i) {
      const bool vazia = estica && i == kInvisivel;
      array.Design(i, Design{0, 0, 480, 240}, vazia ? nullptr : palco.Pictures.Named(nome, i), estica);
      array(i).Visible = false;
    }
  };
}

/// One element of an array.
auto Unico(int indice, const Design& lugar, stage::PictureRef picture, bool estica, bool visivel) {
  return [=](stage::ControlArray<Image>& array) {
    array.Design(indice, lugar, picture, estica);
    array(indice).Visible = visivel;
  };
}

}  // namespace

game::game(Programa& dono)
    : Form(dono.Palco, "game", {0, 0, 12000, 9000}, kFormUnits),
      programa(dono),
      Palco(dono.Palco),
      Module1(dono.Module1),
      Box(*this, "Box", Unico(0, {1080, 480, 465, 225}, nullptr, true, false)),
      ball(*this, {2880, 4800, 225, 225}, Palco.Pictures.Named("Imageball0"), false),
      Imageball(*this, "Imageball", Guarda(Palco, "Imageball", 0, 2, false)),
      ImagePedra(*this, "ImagePedra", Guarda(Palco, "ImagePedra", 1, 22, true)),
      Imgbonus(*this, {1200, 1320, 600, 570}, nullptr, false),
      statusbar(*this, {120, 7080, 9090, 255}, Palco.Pictures.Named("statusbar"), true),
      LabelPontos(*this, {9360, 7800, 1215, 450}, {kStatusFont, Rgb(255, 192, 255), Align::kRight}, "0"),
      ImagePower(*this, "ImagePower", Guarda(Palco, "ImagePower", 1, TabelaBonus::kQuantos, false)),
      life(*this, "life", Unico(1, {3840, 9855, 1770, 345}, Palco.Pictures.Named("barra"), false, true)),
      Label2(*this, {7800, 7800, 1695, 360}, {kStatusFont, Rgb(255, 192, 128)}, "Tela:"),
      ImageBonusParado(*this, "ImageBonusParado",
                       Guarda(Palco, "ImageBonusParado", 1, TabelaBonus::kQuantos, false)),
      User(*this, {4860, 6135, 975, 255}),
      Image1(User, {-15, 0, 1005, 270}, Palco.Pictures.Named("barra"), true),
      Timer_Move(*this, 10, true),
      Timer_Move2(*this, 15, true),
      TimerPisca(*this, 1000, true),
      TimerBonusParado(*this, 10000, true),
      timerDefine(*this, 1, false),
      TimerDescebonus(*this, 1, false),
      Timer2(*this, 5000, true),
      VooBola(ball, [this] { return BolaPresa ? std::optional(LugarPreso()) : std::nullopt; }),
      QuedaBonus(Imgbonus) {
  Imgbonus.Visible = false;
  CuidaEfeitos();

  Timer_Move.Tick = [this] { Timer_Move_Timer(); };
  Timer_Move2.Tick = [this] { Timer_Move2_Timer(); };
  TimerPisca.Tick = [this] { TimerPisca_Timer(); };
  TimerBonusParado.Tick = [this] { TimerBonusParado_Timer(); };
  timerDefine.Tick = [this] { timerDefine_Timer(); };
  TimerDescebonus.Tick = [this] { TimerDescebonus_Timer(); };
  Timer2.Tick = [this] { Timer2_Timer(); };

  Box.Click = [this](auto... e) { Box_Click(e...); };
  statusbar.Click = [this] { statusbar_Click(); };
  Image1.Click = [this] { Image1_Click(); };

  Box.MouseMove = [this](auto... e) { Box_MouseMove(e...); };
  life.MouseMove = [this](auto... e) { life_MouseMove(e...); };
  Imgbonus.MouseMove = [this](auto... e) { Imgbonus_MouseMove(e...); };
  statusbar.MouseMove = [this](auto... e) { statusbar_MouseMove(e...); };
  Label2.MouseMove = [this](auto... e) { Label2_MouseMove(e...); };
  LabelPontos.MouseMove = [this](auto... e) { LabelPontos_MouseMove(e...); };
  User.MouseMove = [this](auto... e) { User_MouseMove(e...); };
  Image1.MouseMove = [this](auto... e) { Image1_MouseMove(e...); };
}

}  // namespace korvane
