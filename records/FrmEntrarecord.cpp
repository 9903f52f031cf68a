#include "records/FrmEntrarecord.h"

#include "records/codepage.h"
#include "stage/forms/events.h"

namespace korvane {
namespace {

using namespace stage::key;
using stage::Rgb;

constexpr int kMaisLetras = 22;

}  // namespace

FrmEntrarecord::FrmEntrarecord(Programa& dono)
    : Form(dono.Palco, "FrmEntrarecord", {0, 0, dono.Palco.Screen.Width, dono.Palco.Screen.Height}),
      programa(dono),
      Image2(*this, {6840, 1200, 3690, 585}, nullptr, false),
      Picture1(*this, {1440, 1440, 5055, 2655}),
      Image1(Picture1, {120, 0, 3690, 930}, dono.Palco.Pictures.Named("titulo"), false),
      Label4(Picture1, {240, 1320, 4575, 375}, {{"MS Sans Serif", 12, true}, Rgb(224, 224, 224)},
             "Digite o seu nome e tecle enter:"),
      Text1(Picture1, {240, 2040, 4350, 555}, {{"MS Sans Serif", 18, true}, Rgb(255, 255, 255)}, "Text1",
            kMaisLetras) {
  Text1.Accepts = TemNaPagina;
}

void FrmEntrarecord::Form_Load() { Image2.Picture = OnStage().Pictures.Named("abertura"); }

void FrmEntrarecord::Form_Activate() {
  Picture1.Top = Single(Height / 2 - Picture1.Height / 2);
  Picture1.Left = Single(Width / 2 - Picture1.Width / 2);
  Image2.Top = Single(Height - 2 * Image2.Height);
  Image2.Left = Single(Width - (Image2.Width + Image2.Height));
  Text1.Text = "";
  Text1.SetFocus();
}

void FrmEntrarecord::Form_KeyDown(Integer KeyCode, Integer) {
  std::string& NomeRecord = programa.Module1.NomeRecord;
  if (KeyCode == kEnter) {
    NomeRecord = Text1.Text;
    Unload();
  }
  if (KeyCode == kEsc) {
    NomeRecord.clear();
    Unload();
  }
}

}  // namespace korvane
