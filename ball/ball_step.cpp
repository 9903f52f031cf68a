// One tick of the ball. Everything else in play hangs on this procedure.
#include "core/game.h"

namespace korvane {

void game::Timer_Move_Timer() { MoveBola(); }

void game::Timer_Move2_Timer() {
  if (Timer_Move.Enabled) MoveBola();
}

void game::MoveBola() {
  if (paused) return;
  if (BolaPresa) return SeguraBola();
  if (BateParede()) return;
  RebateUser();
  ProcuraBox();
  if (PerdeBola()) return;
  if (LimpaFase()) return;
  AvancaBola();
  Palco.DoEvents();
}

Long game::UserMeio() { return CLng(User.Width / 2 + User.Left); }

void game::SeguraBola() {
  const stage::Place lugar = LugarPreso();
  ball.Left = lugar.Left;
  ball.Top = lugar.Top;
  ball.Visible = true;
}

stage::Place game::LugarPreso() {
  const auto topo = Single(User.Top - ball.Height);
  if (DeslocaBola != 0) return {Single(User.Left + DeslocaBola), topo};
  return {Single(Double(UserMeio()) - ball.Width / 2), topo};
}

bool game::BateParede() {
  const Double direita = Palco.Screen.Width - ball.Width;
  if (ball.Left > Single(direita)) {
    VelX = -VelX;
    ball.Left = Single(direita - 1);
    RiscaParede(Lado::Right);
  } else if (ball.Left < ball.Width) {
    VelX = -VelX;
    ball.Left = Single(ball.Width + 1);
    RiscaParede(Lado::Left);
  } else if (ball.Top < ball.Height) {
    VelY = -VelY;
    ball.Top = Single(ball.Height + 1);
    RiscaParede(Lado::Up);
  } else {
    return false;
  }
  sound("lad.wav");
  return true;
}

void game::RebateUser() {
  const bool alcanca = VelY > 0 && Single(ball.Top + ball.Height) >= User.Top &&
                       Single(ball.Left + ball.Width * 1.5) >= User.Left &&
                       Single(User.Left + User.Width) >= Single(ball.Width / 2 + ball.Left);
  if (!alcanca) return;
  BatidasRigido = 0;
  if (Magnetico) {
    DeslocaBola = Single(ball.Left - User.Left);
    BolaPresa = true;
    sound("magnetico.wav");
  } else {
    sound("plat.wav");
  }
  constexpr Double kMaiorDesvio = 90;  // form units a tick, at the paddle's end
  const Double desvio = (ball.Width / 2 + ball.Left) - Double(UserMeio());
  VelX = Int(desvio / (User.Width / 2) * kMaiorDesvio);
  VelY = -VelY;
}

bool game::PerdeBola() {
  if (!(ball.Top > User.Top)) return false;
  CaiBola();
  ball.Visible = false;
  ResumeNext([&] { Vidas = Vidas - 1; });
  sound("end.wav");
  TiraPoderes();
  ExibeVidas(Vidas);
  ExibeBolaAtual();
  if (Vidas < 1) {
    ResumeNext([&] { gameover(); });
    return true;
  }
  DeixaUser();
  User.Left = Single(Palco.Screen.Width / 2.0 - User.Width / 2);
  MudaTamanho(2);
  RepoeBola();
  DeslocaBola = 0;
  ball.Visible = true;
  if (TemRigido) ResumeNext([&] { passafase(); });
  return true;
}

/// The ball waits on the paddle for its launch, which is straight up.
void game::RepoeBola() {
  ball.Top = User.Top;
  ball.Left = Single(ball.Width / 2 + User.Left);
  BolaPresa = true;
  VelX = 0;
  ResumeNext([&] { VelY = -Module1.Vkorv; });
}

bool game::LimpaFase() {
  for (Integer i = 1; i < ProximoBox; i = i + 1) {
    if (Module1.TipoBox(i) != 0) return false;
  }
  ResumeNext([&] { ProximaFase(); });
  return true;
}

void game::AvancaBola() {
  ball.Top = Single(ball.Top + VelY);
  ball.Left = Single(ball.Left + VelX);
}

}  // namespace korvane
