#include "screens/FrmHelp.h"

#include "bonus/tabela.h"
#include "stage/forms/events.h"

namespace korvane {
namespace {

using namespace stage::key;

void DesenhaImagens(stage::ControlArray<stage::Image>& array, stage::Stage& palco) {
  for (const Bonus& bonus : TabelaBonus::kTodos) {
    array.Design(bonus.codigo, stage::Design{240, bonus.legenda.topo_imagem, 615, 585},
                 palco.Pictures.Named("ImagePower", bonus.codigo), false);
  }
}

void DesenhaTextos(stage::ControlArray<stage::Label>& array) {
  const stage::Style estilo{{"MS Sans Serif", 9.75F, false}, stage::Rgb(128, 255, 255), {}, true};
  for (const Bonus& bonus : TabelaBonus::kTodos) {
    const Legenda& legenda = bonus.legenda;
    array.Design(legenda.linha, stage::Design{960, legenda.topo_texto, legenda.largura, 240}, estilo,
                 legenda.texto);
  }
}

}  // namespace

FrmHelp::FrmHelp(Programa& dono)
    : Form(dono.Palco, "FrmHelp", {0, 0, 12885, 9000}),
      Picture1(*this, {2520, 960, 6495, 6615}),
      Image2(Picture1, {120, 0, 3690, 585}, nullptr, false),
      ImagePower(Picture1, "ImagePower", [&dono](auto& array) { DesenhaImagens(array, dono.Palco); }),
      Label(Picture1, "Label", DesenhaTextos) {
  Picture1.Click = Image2.Click = [this] { Unload(); };
  ImagePower.Click = Label.Click = [this](Integer) { Unload(); };
}

void FrmHelp::Form_Load() {
  const stage::ScreenSize& Screen = OnStage().Screen;
  Top = 0;
  Left = 0;
  Height = Screen.Height;
  Width = Screen.Width;
  Image2.Picture = OnStage().Pictures.Named("abertura");
  Centraliza();
}

void FrmHelp::Form_Activate() {
  Centraliza();
  Refresh();
}

void FrmHelp::Centraliza() {
  Picture1.Top = Single(Height / 2 - Picture1.Height / 2);
  Picture1.Left = Single(Width / 2 - Picture1.Width / 2);
}

void FrmHelp::Form_KeyDown(Integer KeyCode, Integer) {
  if (KeyCode == kF1 || KeyCode == kEnter || KeyCode == kEsc) Unload();
}

void FrmHelp::Form_Click() { Unload(); }

}  // namespace korvane
