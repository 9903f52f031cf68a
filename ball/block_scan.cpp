// Which block the ball's next step meets, and on which side. The step is added to the leading edge only, so
// no block is thin enough to be jumped over.
#include "core/game.h"

namespace korvane {
namespace {

Single Direita(const stage::Image& imagem) { return Single(imagem.Left + imagem.Width); }
Single Fundo(const stage::Image& imagem) { return Single(imagem.Top + imagem.Height); }

}  // namespace

void game::ProcuraBox() {
  if (!Box.Exists(ProximoBox)) return;  // no level stands
  if (!Box(ProximoBox).Visible && Fundo(Box(ProximoBox - 1)) < ball.Top) return;
  for (Integer i = ProximoBox; i >= 1; i = i - 1) {
    const std::string_view lado = LadoBatido(Box(i));
    if (lado.empty()) continue;
    ResumeNext([&] { hos(lado, i); });
    return;
  }
}

/// The way the ball goes back from the block; empty if it does not meet it.
std::string_view game::LadoBatido(stage::Image& bloco) {
  if (!bloco.Visible) return {};
  const Double L = bloco.Left;
  const Double T = bloco.Top;
  const Double R = Direita(bloco);
  const Double B = Fundo(bloco);
  const Double bL = ball.Left;
  const Double bT = ball.Top;
  const Double bR = Direita(ball);
  const Double bB = Fundo(ball);
  const Double meio = Single(ball.Height / 2 + ball.Top);

  if (R >= bL && bR >= L && B >= Single(bT + VelY) && bB >= T) return "down";
  if (Single(bL + ball.Width + VelX) >= L && R >= bL && meio >= T && B >= bT) return "left";
  if (R >= Single(bL + VelX) && bR >= L && meio >= T && B >= bT) return "right";
  if (R >= bL && bR >= L && Single(bT + ball.Height + VelY) >= T && B >= bT) return "up";
  return {};
}

}  // namespace korvane
