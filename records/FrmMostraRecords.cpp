#include "records/FrmMostraRecords.h"

#include <array>

#include "stage/forms/events.h"

namespace korvane {
namespace {

using namespace stage::key;
using stage::Align;
using stage::Rgb;

struct Linha {
  Double topo;
  Double altura;
};
constexpr std::array<Linha, kRecords> kLinhas{{{1080, 495},
                                               {1680, 495},
                                               {2280, 495},
                                               {2880, 345},
                                               {3360, 345},
                                               {3840, 345},
                                               {4320, 345},
                                               {4800, 345},
                                               {5280, 345},
                                               {5760, 345}}};
constexpr Double kSemPontos = 9999999;  // a score shown as a point

auto Coluna(Double esquerda, Double largura, Align lado, const char* texto) {
  return [=](stage::ControlArray<stage::Label>& array) {
    const stage::Style estilo{{"Verdana", 14.25F, true}, Rgb(224, 224, 224), lado};
    int linha_atual = 0;
    for (const Linha& linha : kLinhas) {
      array.Design(++linha_atual, stage::Design{esquerda, linha.topo, largura, linha.altura}, estilo, texto);
    }
  };
}

std::string PontosComoTexto(Double pontos) {
  return pontos == kSemPontos ? "." : stage::DecimalText(Int(pontos));
}

}  // namespace

FrmMostraRecords::FrmMostraRecords(Programa& dono)
    : Form(dono.Palco, "FrmMostraRecords", {0, 0, dono.Palco.Screen.Width, dono.Palco.Screen.Height}),
      programa(dono),
      Picture1(*this, {2040, 1320, 6255, 6255}),
      Image1(Picture1, {0, 0, 3690, 930}, dono.Palco.Pictures.Named("titulo"), false),
      Label1(Picture1, "Label1", Coluna(120, 4215, Align::kLeft, "Label1")),
      Label2(Picture1, "Label2", Coluna(4560, 1335, Align::kRight, "Label2")) {
  Picture1.Click = Image1.Click = [this] { Unload(); };
  Label1.Click = Label2.Click = [this](Integer) { Unload(); };
}

void FrmMostraRecords::Form_Load() {
  korvane::Module1& m = programa.Module1;
  const stage::ScreenSize& Screen = OnStage().Screen;
  Picture1.Top = Single(Screen.Height / 2.0 - Picture1.Height / 2);
  Picture1.Left = Single(Screen.Width / 2.0 - Picture1.Width / 2);
  if (m.RecNovo != 0) {
    Label1(m.RecNovo).ForeColor = Rgb(255, 255, 0);
    Label2(m.RecNovo).ForeColor = Rgb(255, 255, 0);
  }
  for (Integer i = 1; i <= kRecords; i = i + 1) {
    Label1(i).FontSize = Single(21 - i);
    Label2(i).FontSize = Single(21 - i);
    Label1(i).Caption = m.RecNome(i);
    Label2(i).Caption = PontosComoTexto(m.RecPontos(i));
  }
}

void FrmMostraRecords::Form_KeyDown(Integer KeyCode, Integer) {
  if (KeyCode == kEnter || KeyCode == kEsc) Unload();
}

void FrmMostraRecords::Form_Click() { Unload(); }

}  // namespace korvane
