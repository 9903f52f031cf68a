// What a hit does to the block, the score and the ball. All that sets block types and ball kinds apart is
// here.
#include "core/game.h"

namespace korvane {
namespace {

constexpr int kBatidasAteAmolecer = 100;

}  // namespace

void game::hos(Lado Side, Integer boxindex) {
  const Integer BolaAtual = Module1.BolaAtual;
  const Integer tipo = Module1.TipoBox(boxindex);
  if (tipo != kRigido || BolaAtual == 2) Module1.TipoBox(boxindex) = 0;
  if (tipo == kFechamento) {
    Box(boxindex).Visible = false;
    InverteVelocidade(Side);
    AcendeUser(BonusParado);
    consedebonus(BonusParado);
    return;
  }
  PontuaBatida(tipo);
  if (tipo == kRigido) {
    BateRigido(Side, boxindex);
  } else if (tipo == kInvisivel) {
    if (BolaAtual != 0) Module1.TipoBox(boxindex) = 1;
    Box(boxindex).Picture = ImagePedra(kRevelado).Picture;
    RevelaBloco(boxindex);
    BatidasRigido = 0;
    sound("bloc2.wav");
  } else {
    Box(boxindex).Visible = false;
    EstalaBloco(boxindex);
    BatidasRigido = 0;
    sound("bloc.wav");
  }
  if (BolaAtual == 2 || (BolaAtual == 1 && tipo != kRigido)) return;
  InverteVelocidade(Side);
  if (TemRigido) passafase();
}

void game::InverteVelocidade(Lado Side) {
  if (Side == Lado::Right || Side == Lado::Left) VelX = -VelX;
  if (Side == Lado::Up || Side == Lado::Down) VelY = -VelY;
}

void game::PontuaBatida(Integer tipo) {
  Long& Pontos = Module1.Pontos;
  if (tipo == kRigido) {
    if (Module1.BolaAtual == 2) Pontos = Pontos + 20;
  } else if (tipo == kInvisivel) {
    Pontos = Pontos + (Module1.BolaAtual > 0 ? 15 : 10);
  } else {
    Pontos = Pontos + 5;
  }
  LabelPontos.Caption = std::to_string(Pontos);
}

void game::BateRigido(Lado Side, Integer boxindex) {
  if (Module1.BolaAtual == 2) Module1.TipoBox(boxindex) = 1;
  EncostaBola(Side, boxindex);
  BrilhaRigido(boxindex);
  BatidasRigido = BatidasRigido + 1;
  if (BatidasRigido >= kBatidasAteAmolecer) {
    BatidasRigido = 0;
    AmoleceRigidos();
  }
  sound("hard.wav");
}

void game::EncostaBola(Lado Side, Integer boxindex) {
  const stage::Image& bloco = Box(boxindex);
  if (Side == Lado::Up) ball.Top = Single(bloco.Top - ball.Height);
  if (Side == Lado::Down) ball.Top = Single(bloco.Height + bloco.Top);
  if (Side == Lado::Left) ball.Left = Single(bloco.Left - ball.Width);
  if (Side == Lado::Right) ball.Left = Single(bloco.Width + bloco.Left);
}

/// Hard blocks that blinking hides come back as they turn, so that they can be cleared.
void game::AmoleceRigidos() {
  for (Integer k = 1; k < ProximoBox; k = k + 1) {
    if (Module1.TipoBox(k) != kRigido) continue;
    Module1.TipoBox(k) = kAmolecido;
    Box(k).Picture = ImagePedra(kAmolecido).Picture;
    Box(k).Visible = true;
    AcendeAmolecido(k);
  }
}

}  // namespace korvane
