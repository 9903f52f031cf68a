// Bonuses that stand at a free place of the field for a while and are collected by the ball.
#include "bonus/tabela.h"
#include "core/game.h"

namespace korvane {
namespace {

constexpr int kAteTirar = 10000;  // ms, also between draws
constexpr int kDepoisDeTirar = 3000;
constexpr int kTentativas = 3;

}  // namespace

void game::TimerBonusParado_Timer() {
  if (!TemFechamento) return;
  if (BonusExcluido == kTodosBarrados) return;
  BonusParado = kNenhum;
  stage::Image& fecho = Box(ProximoBox);
  if (fecho.Visible) {
    fecho.Visible = false;
    TimerBonusParado.Interval = kDepoisDeTirar;
    return;
  }
  TimerBonusParado.Interval = kAteTirar;
  if (paused || BolaPresa) return;
  const int sorteado = CodigoSorteado(Sorteio::kParado);
  if (sorteado == kNenhum) return;
  const int codigo = AplicaRegras(sorteado, Sorteio::kParado);
  if (codigo == kNenhum) return;
  BonusParado = codigo;
  if (codigo == BonusExcluido) return;
  fecho.Picture = ImageBonusParado(BonusParado).Picture;

  const Long fase = FasesRetiradas;
  Double y = 0;
  Single x = 0;
  const bool achou = ProcuraLugar(fecho, y, x);
  if (fase != FasesRetiradas) return;
  if (!achou) {
    BonusParado = kNenhum;
    return;
  }
  fecho.Top = Single(y);
  fecho.Left = x;
  fecho.Visible = true;
  SurgeBonusParado();
  Module1.TipoBox(ProximoBox) = kFechamento;
}

/// Whether a place is found; not if the level goes while events run.
bool game::ProcuraLugar(const stage::Image& fecho, Double& y, Single& x) {
  const Long fase = FasesRetiradas;
  for (int tentativa = 0; tentativa < kTentativas; ++tentativa) {
    Palco.DoEvents();
    if (fase != FasesRetiradas) return false;
    y = Int(Palco.Rnd() * (Height * 0.7) + 1);
    x = Single(Int(Palco.Rnd() * (Width - fecho.Width)) + 1);
    if (LugarLivre(fecho, y, x, fase)) return true;
    if (fase != FasesRetiradas) return false;
  }
  return false;
}

bool game::LugarLivre(const stage::Image& fecho, Double y, Single x, Long fase) {
  const Double W = fecho.Width;
  const Double H = fecho.Height;
  const Integer ultimo = ProximoBox - 1;
  for (Integer i = 1; i <= ultimo; i = i + 1) {
    Palco.DoEvents();
    if (fase != FasesRetiradas) return false;
    const stage::Image& bloco = Box(i);
    if (!bloco.Visible) continue;
    const bool no_bloco = x > Single(bloco.Left - W) && x < Single(bloco.Left + bloco.Width) &&
                          y > Single(bloco.Top - H) && y < Single(bloco.Top + bloco.Height);
    const bool na_bola = ball.Left >= Single(x - ball.Width) && ball.Left <= Single(x + W) &&
                         ball.Top >= y - ball.Height && ball.Top <= y + H;
    if (no_bloco || na_bola) return false;
    Palco.DoEvents();
    if (fase != FasesRetiradas) return false;
  }
  return true;
}

}  // namespace korvane
