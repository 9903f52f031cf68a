#include "screens/FrmHelp.h"

#include <array>

#include "stage/events.h"

namespace korvane {
namespace {

using namespace stage::key;

/// One line of the legend. The picture is named by the bonus's code, the text by its row.
struct Linha {
  int codigo;
  Double topo_imagem;
  Double topo_texto;
  Double largura;
  const char* texto;
};

constexpr std::array<Linha, 8> kLegenda{
    {{1, 840, 1080, 1575, "Atravessa blocos"},
     {2, 1440, 1680, 3060, "Atrevessa inclusive blocos rígidos"},
     {4, 2280, 2400, 2595, "Aumenta o tamanho da barra"},
     {5, 2880, 3120, 2535, "Diminue o tamanho da barra"},
     {6, 3720, 3960, 5295, "A esfera torna-se magnetica com relação a barra receptora"},
     {7, 4440, 4680, 5475, "Passa para a próxima tela, adquirindo os pontos da tela atual"},
     {3, 5280, 5520, 1425, "Perde uma vida"},
     {8, 5880, 6120, 1470, "Ganha uma vida"}}};

void DesenhaImagens(stage::ControlArray<stage::Image>& array, stage::Stage& palco) {
  for (const Linha& linha : kLegenda) {
    array.Design(linha.codigo, stage::Design{240, linha.topo_imagem, 615, 585},
                 palco.Pictures.Named("ImagePower", linha.codigo), false);
  }
}

void DesenhaTextos(stage::ControlArray<stage::Label>& array) {
  const stage::Style estilo{{"MS Sans Serif", 9.75F, false}, stage::Rgb(128, 255, 255), {}, true};
  int linha_atual = 0;
  for (const Linha& linha : kLegenda) {
    array.Design(++linha_atual, stage::Design{960, linha.topo_texto, linha.largura, 240}, estilo,
                 linha.texto);
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
