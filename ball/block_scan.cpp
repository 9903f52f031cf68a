// Which block the ball's next step meets, and on which side. The step is added to the leading edge only, so
// no block is thin enough to be jumped over.
#include <optional>

#include "core/game.h"

namespace korvane {
namespace {

Single Fundo(const stage::Image& imagem) { return Single(imagem.Top + imagem.Height); }

/// The ball's edges, where they are and where the coming step takes them.
struct Alcance {
  Alcance(const stage::Image& ball, Double VelX, Double VelY)
      : bL(Single(ball.Left)),
        bT(Single(ball.Top)),
        bR(Single(ball.Left + ball.Width)),
        bB(Fundo(ball)),
        meio(Single(ball.Height / 2 + ball.Top)),
        passo_L(Single(ball.Left + VelX)),
        passo_T(Single(ball.Top + VelY)),
        passo_R(Single(ball.Left + ball.Width + VelX)),
        passo_B(Single(ball.Top + ball.Height + VelY)) {}

  Single bL, bT, bR, bB, meio;
  Single passo_L, passo_T, passo_R, passo_B;
};

/// The way the ball goes back from the block, if it meets it.
std::optional<Lado> LadoBatido(const Alcance& b, const stage::Image& bloco) {
  const Single L = bloco.Left.Get();
  const Single T = bloco.Top.Get();
  const auto R = Single(bloco.Left + bloco.Width);
  const Single B = Fundo(bloco);

  if (R >= b.bL && b.bR >= L && B >= b.passo_T && b.bB >= T) return Lado::Down;
  if (b.passo_R >= L && R >= b.bL && b.meio >= T && B >= b.bT) return Lado::Left;
  if (R >= b.passo_L && b.bR >= L && b.meio >= T && B >= b.bT) return Lado::Right;
  if (R >= b.bL && b.bR >= L && b.passo_B >= T && B >= b.bT) return Lado::Up;
  return std::nullopt;
}

}  // namespace

void game::ProcuraBox() {
  const bool parado = Box.Exists(ProximoBox) && Box(ProximoBox).Visible;
  if (!parado && Fundo(Box(ProximoBox - 1)) < ball.Top) return;
  const Alcance alcance(ball, VelX, VelY);
  for (int i = ProximoBox - (parado ? 0 : 1); i >= 1; --i) {
    const stage::Image& bloco = Box(i);
    if (!bloco.Visible) continue;
    const std::optional<Lado> lado = LadoBatido(alcance, bloco);
    if (!lado) continue;
    ResumeNext([&] { hos(*lado, i); });
    return;
  }
}

}  // namespace korvane
