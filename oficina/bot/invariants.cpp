#include "oficina/bot/invariants.h"

#include <algorithm>
#include <cmath>

#include "bonus/tabela.h"

namespace bot {
namespace {

using korvane::game;
using stage::Double;
using stage::Integer;

Double PaddleWidth(const game& jogo) {
  constexpr Double kSmall = 0.7;
  if (jogo.TamanhoUser == 1) return stage::Single(jogo.LarguraBase * kSmall);
  return jogo.LarguraBase * (jogo.TamanhoUser - 1);
}

}  // namespace

std::string Invariants::Broken(game& jogo, const stage::Form* active) {
  const korvane::Module1& m = jogo.Module1;
  const bool plays = active != nullptr && active->Name() == "game" && !jogo.paused;
  const auto in = [](Double value, Double least, Double most) { return value >= least && value <= most; };
  const Double step = std::abs(Double(m.Vkorv));
  const Double farthest =
      std::max(step, std::exchange(step_, step));  // the step may just have been measured anew
  struct {
    const char* what;
    bool holds;
  } const rules[] = {
      {"the ball's kind", in(m.BolaAtual, 0, 2)},
      {"the paddle's size", in(jogo.TamanhoUser, 1, 3)},
      {"the paddle's width", jogo.User.Width == PaddleWidth(jogo) && jogo.Image1.Width == jogo.User.Width},
      {"the paddle's place", in(jogo.User.Left, 0, jogo.Width - jogo.LarguraBase * 0.7)},
      {"lives", in(jogo.Vidas, plays ? 1 : 0, 7)},
      {"the series", in(jogo.Serie, 0, 3)},
      {"the level's number", jogo.FaseAtual >= 1},
      {"the score", m.Pontos >= 0},
      {"the falling bonus",
       jogo.BonusCaindo == -1 || in(jogo.BonusCaindo, 1, korvane::TabelaBonus::kQuantos)},
      {"a falling sprite without its timer", !jogo.Imgbonus.Visible || jogo.TimerDescebonus.Enabled},
      {"the parked bonus", in(jogo.BonusParado, 0, korvane::TabelaBonus::kQuantos)},
      {"hits on hard blocks", in(jogo.BatidasRigido, 0, 99)},
      {"blinking", jogo.TimerPisca.Enabled == (jogo.TipoPisca > 0)},
      {"the size of the ball's step", std::abs(jogo.VelY) == step},
      {"the ball across", jogo.BolaPresa || in(jogo.ball.Left, -200, jogo.Palco.Screen.Width + 200.0)},
      {"the ball up and down", in(jogo.ball.Top, -farthest, jogo.User.Top + farthest)},
      {"block 0", !jogo.Box(0).Visible},
      {"the carrier's index", in(jogo.ProximoBox, 1, decltype(jogo.Module1.TipoBox)::kCount - 1)},
  };
  for (const auto& rule : rules) {
    if (!rule.holds) return rule.what;
  }
  return BrokenLevel(jogo);
}

/// The elements of the level are looked at once, as it comes.
std::string Invariants::BrokenLevel(game& jogo) {
  auto& TipoBox = jogo.Module1.TipoBox;
  const Integer carrier = jogo.ProximoBox;
  if (TipoBox(0) != 0) return "the type of block 0";
  if (!jogo.Box.Exists(carrier)) {
    const bool all_done = carrier == 1 && jogo.Serie == 3;
    return all_done ? "" : "no carrier";
  }
  if (TipoBox(carrier) != korvane::kFechamento && (TipoBox(carrier) != 0 || jogo.Box(carrier).Visible))
    return "the carrier's type";
  if (level_ == jogo.FasesRetiradas) return "";
  level_ = jogo.FasesRetiradas;
  bool hard = false;
  for (Integer i = 1; i < carrier; i = i + 1) {
    if (!jogo.Box.Exists(i)) return "a missing block";
    hard = hard || TipoBox(i) == korvane::kRigido;
  }
  if (hard != jogo.TemRigido) return "hard blocks";
  for (Integer i = carrier + 1; i < jogo.Box.End(); i = i + 1) {
    if (jogo.Box.Exists(i)) return "a block of another level";
  }
  return "";
}

}  // namespace bot
