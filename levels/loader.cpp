// A level comes onto the field. A file that cannot be read is the end of a series.
#include <iostream>

#include "core/game.h"
#include "levels/level_file.h"
#include "stage/files/path_text.h"

namespace korvane {
namespace {

constexpr int kUltimaSerie = 3;

std::filesystem::path Arquivo(const std::string& caminho, Integer num) {
  return stage::HostPath(caminho, "levels\\" + std::to_string(num) + ".sav");
}

}  // namespace

void game::loadup(Integer num) {
  TimerPisca.Enabled = false;
  TipoPisca = 0;
  BonusExcluido = 0;
  while (true) {
    try {
      CarregaFase(num);
      LeuFase = true;
      SurgeFase();
      return;
    } catch (const RuntimeError&) {
      if (Serie == kUltimaSerie) break;
    }
    clearall();
    FaseAtual = 1;
    Serie = Serie + 1;
    num = 1;
  }
  TodosCompletados(num);
}

void game::CarregaFase(Integer num) {
  ProximoBox = 1;
  TemRigido = false;
  const std::string texto = LevelText(Palco.FileToRead(Arquivo(Caminho, num)));
  LevelReader leitor(texto);
  while (!leitor.AtEnd()) {
    const LevelRecord registro = leitor.Next();
    if (registro.IsRule()) {
      if (registro.Blinks()) {
        TipoPisca = registro.BlinkingType();
        TimerPisca.Interval = registro.BlinkInterval();
      }
      BonusExcluido = registro.BarredBonus();
      continue;
    }
    Box.Load(ProximoBox);
    stage::Image& bloco = Box(ProximoBox);
    DispoeBloco(bloco, registro.Top(), registro.Left(), registro.Height(), registro.Width());
    bloco.Visible = true;
    Module1.TipoBox(ProximoBox) = registro.Type();
    if (registro.TypeIs(kRigido)) TemRigido = true;
    bloco.Picture = ImagePedra(registro.Type()).Picture;
    ProximoBox = ProximoBox + 1;
  }
  CriaFechamento();
  TiraPoderes();
  ExibeBolaAtual();
  Label2.Caption = std::string("Tela: ") + "ABCDEFGHIJKLM"[Serie] + "-" + std::to_string(num);
  if (TipoPisca > 0) TimerPisca.Enabled = true;
}

void game::DispoeBloco(stage::Control& bloco, Integer topo, Integer esquerda, Integer altura,
                       Integer largura) const {
  bloco.Top = Single(Height / 35 * Serie + Redimensionar("top", topo));
  bloco.Left = Single(Redimensionar("left", esquerda));
  bloco.Height = Single(Redimensionar("top", altura));
  bloco.Width = Single(Redimensionar("left", largura));
}

/// The carrier of the parked bonus stands behind the last block.
void game::CriaFechamento() {
  Box.Load(ProximoBox);
  Box(ProximoBox).Stretch = false;
  Box(ProximoBox).Visible = false;
  Module1.TipoBox(ProximoBox) = kFechamento;
  TemFechamento = true;
}

void game::TodosCompletados(Integer num) {
  Palco.MsgBox("Todos os niveis completados");
  if (LeuFase) return;
  std::cerr << "korvane: cannot read " << stage::TextOf(Arquivo(Caminho, num)) << '\n';
  stage::Stage::End();
}

}  // namespace korvane
