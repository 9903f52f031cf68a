#include "oficina/FrmRegra.h"

#include <algorithm>

#include "stage/stage.h"

namespace oficina {
namespace {

using stage::Double;
using stage::Integer;

constexpr Double kMargem = 300;
constexpr Double kLargura = 8400;
constexpr Double kAltura = 5100;
constexpr Double kColuna = 650;  // of the types, twelve to a row
constexpr Double kFila = 420;
constexpr int kColunas = 12;
constexpr Double kTipos = 1200;
constexpr Double kIntervalo = 2200;
constexpr Double kBonus = 3150;
constexpr Double kColunaBonus = 780;
constexpr int kTodosOsBonus = desenho::kLastBonus + 1;  // the place of "all"

const stage::Style kPalavras{stage::box::kFont, stage::Rgb(240, 240, 240)};
const stage::Style kNoMeio{stage::box::kFont, stage::Rgb(240, 240, 240), stage::Align::kCenter};

stage::Design LugarDoTipo(int tipo) {
  const int fila = tipo / kColunas;
  return {kMargem + tipo % kColunas * kColuna, kTipos + fila * kFila, kColuna - 90, kFila - 100};
}

stage::Design LugarDoBonus(int lugar) { return {kMargem + lugar * kColunaBonus, kBonus + 400, 615, 585}; }

/// Half way down.
stage::Design Palavra(const stage::Design& lugar) {
  constexpr Double kLinha = 240;
  return {lugar.left, lugar.top + (lugar.height - kLinha) / 2, lugar.width, kLinha};
}

int LugarDe(int bonus) { return bonus == desenho::kAllBonuses ? kTodosOsBonus : bonus; }
int BonusDe(int lugar) { return lugar == kTodosOsBonus ? desenho::kAllBonuses : lugar; }

void Marque(Marca& marca, const stage::Design& lugar) {
  constexpr Double kFolga = 45;
  marca.PoeEm(lugar.left - kFolga, lugar.top - kFolga, lugar.width + 2 * kFolga, lugar.height + 2 * kFolga);
}

}  // namespace

FrmRegra::FrmRegra(stage::Stage& palco, stage::ControlArray<stage::Image>& tipos, const desenho::Regra& regra)
    : Form(palco, "FrmRegra", {0, 0, kLargura, kAltura}),
      regra_(regra),
      titulo_(*this, {kMargem, 150, kLargura, 300}, {stage::box::kBold, stage::Rgb(255, 210, 63)},
              "Regra da tela"),
      pergunta_tipo_(*this, {kMargem, 750, kLargura, 300}, kPalavras, "Tipo que pisca"),
      tipos_(*this, "tipos",
             [&tipos](auto& array) {
               for (int tipo = 0; tipo <= desenho::kLastType; ++tipo) {
                 array.Design(tipo, LugarDoTipo(tipo), tipo == 0 ? nullptr : tipos(tipo).Picture.Get(), true);
               }
             }),
      intervalo_(*this, {kMargem, kIntervalo + 60, 3000, 300}, kPalavras, ""),
      menos_(*this, {3400, kIntervalo, 600, 390}, "-"),
      mais_(*this, {4100, kIntervalo, 600, 390}, "+"),
      pergunta_bonus_(*this, {kMargem, kBonus, kLargura, 300}, kPalavras, "Bônus que nunca cai"),
      bonus_(*this, "bonus",
             [&palco](auto& array) {
               for (int lugar = 0; lugar <= kTodosOsBonus; ++lugar) {
                 const bool um = lugar >= 1 && lugar <= desenho::kLastBonus;
                 array.Design(lugar, LugarDoBonus(lugar),
                              um ? palco.Pictures.Named("ImagePower", lugar) : nullptr, true);
               }
             }),
      nenhum_tipo_(*this, Palavra(LugarDoTipo(0)), kNoMeio, "nada"),
      nenhum_bonus_(*this, Palavra(LugarDoBonus(0)), kNoMeio, "nenhum"),
      todos_(*this, Palavra(LugarDoBonus(kTodosOsBonus)), kNoMeio, "todos"),
      ok_(*this, {(kLargura - 1200) / 2, kAltura - 570, 1200, 420}, "OK"),
      tipo_escolhido_(*this, stage::box::kMarked, Marca::Forma::kLinha),
      bonus_escolhido_(*this, stage::box::kMarked, Marca::Forma::kLinha) {
  Left = stage::Single((palco.Screen.Width - Width) / 2);
  Top = stage::Single((palco.Screen.Height - Height) / 2);
  SetFrame(stage::box::kFrame);
  for (stage::Label* const label : {&nenhum_tipo_, &nenhum_bonus_, &todos_}) label->Enabled = false;
  tipos_.Click = [this](Integer tipo) {
    regra_.pisca = tipo;
    Mostra();
  };
  bonus_.Click = [this](Integer lugar) {
    regra_.barrado = BonusDe(lugar);
    Mostra();
  };
  menos_.Click = [this] { MudaIntervalo(-1); };
  mais_.Click = [this] { MudaIntervalo(1); };
  ok_.Click = [this] { Aceita(); };
  SetFocus(ok_);
  Mostra();
}

void FrmRegra::MudaIntervalo(int passos) {
  constexpr int kPasso = 100;
  constexpr int kMaior = 60000;  // what a text map can tell
  regra_.intervalo = std::clamp(regra_.intervalo + passos * kPasso, desenho::Regra::kMenorIntervalo, kMaior);
  Mostra();
}

void FrmRegra::Mostra() {
  intervalo_.Caption = "Período: " + std::to_string(regra_.intervalo) + " ms";
  Marque(tipo_escolhido_, LugarDoTipo(regra_.pisca));
  Marque(bonus_escolhido_, LugarDoBonus(LugarDe(regra_.barrado)));
}

void FrmRegra::Aceita() {
  resposta_ = regra_;
  Unload();
}

void FrmRegra::Form_KeyDown(Integer KeyCode, Integer) {
  if (KeyCode == stage::key::kEsc) Unload();
}

void FrmRegra::Form_Wheel(Integer Steps, Integer) { MudaIntervalo(Steps); }

}  // namespace oficina
