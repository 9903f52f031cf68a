#include "oficina/bot/bot.h"

#include <algorithm>

#include "bonus/tabela.h"

namespace bot {
namespace {

using korvane::game;
using namespace stage::key;
using stage::Double;

constexpr int kLostInBeats = 400;  // no ball needs longer from the top of the field to the paddle

struct Landing {
  int beats;
  Double middle;
};

/// Where the ball meets the paddle's height if no block turns it, and in how many beats of two steps.
Landing WhereItLands(const game& jogo) {
  const Double width = jogo.ball.Width;
  const Double right = jogo.Palco.Screen.Width - width;
  Double left = jogo.ball.Left;
  Double top = jogo.ball.Top;
  Double across = jogo.VelX;
  Double down = jogo.VelY;
  int steps = 0;
  for (; steps < 2 * kLostInBeats; ++steps) {
    if (left > right || left < width) {
      left = left > right ? right - 1 : width + 1;
      across = -across;
    } else if (top < jogo.ball.Height) {
      top = jogo.ball.Height + 1;
      down = -down;
    } else if (down > 0 && top + jogo.ball.Height >= jogo.User.Top) {
      break;
    } else {
      top += down;
      left += across;
    }
  }
  return {steps / 2, left + width / 2};
}

}  // namespace

void Bot::Press(int code, int shift) {
  platform_.Send(stage::KeyPressed{code, shift});
  platform_.Send(stage::KeyReleased{code, shift});
}

void Bot::Act() {
  const stage::Form* const form = programa_.Palco.ActiveForm();
  if (form != nullptr && form->Name() == "game") {
    Play(*programa_.game.Last());
    if (wanders) Wander();
  } else if (form != nullptr) {
    Answer(form->Name());
  }
  platform_.PassTo(stage::kBeat);
}

void Bot::Answer(const std::string& form) {
  constexpr Double kImpatience = 0.1;  // a beat; some time passes under every form
  if (!Chance(kImpatience)) return;
  if (form == "FrmEntrarecord" && Chance(0.8)) {
    platform_.Send(stage::TextTyped{"Robô " + std::to_string(random_() % 100)});
    Press(kEnter);
  } else if (form == "MsgBox") {
    Press(kEnter);
  } else {
    Press(kEsc);
  }
}

/// On average each of these once in so many minutes of play.
void Bot::Wander() {
  constexpr Double kMinute = 64 * 60;  // beats
  const game& jogo = *programa_.game.Last();
  if (jogo.timerDefine.Enabled) return;  // a pause would be measured as a slow machine
  if (Chance(1 / (10 * kMinute))) Press(kF1);
  if (Chance(1 / (10 * kMinute))) Press(kP);
  const bool nothing_left = !jogo.Box.Exists(1);
  if (!Chance(1 / ((nothing_left ? 1 : 15) * kMinute))) return;
  constexpr const char* kLevels[] = {"0",  "1",  "2.5", "17", "33",    "40",
                                     "99", "99", "99",  "99", "99999", "fase"};
  Press(kA, stage::kCtrl);
  platform_.Send(stage::TextTyped{kLevels[random_() % std::size(kLevels)]});
  Press(kEnter);
}

void Bot::LookAtBonus(game& jogo) {
  if (jogo.BonusCaindo != falling_ && jogo.BonusCaindo > 0) {
    wanted_ = Chance(jogo.BonusCaindo == korvane::kTiraVida ? 0.1 : 0.8);
  }
  falling_ = jogo.BonusCaindo;
  if (!stays_in_level) return;
  // The paddle cannot always keep clear of it, and the ball hits what stands in its way.
  if (jogo.BonusCaindo == korvane::kPassaFase) jogo.BonusCaindo = -1;
  if (jogo.BonusParado == korvane::kPassaFase) jogo.BonusParado = 0;
}

void Bot::Play(game& jogo) {
  LookAtBonus(jogo);
  if (jogo.BolaPresa) {
    constexpr Double kReadiness = 0.05;
    if (!Chance(kReadiness)) return;
    MovePaddle(jogo, Between(0, jogo.Width - jogo.User.Width));
    if (wanders && Chance(0.2)) {
      Press(kSpace);
    } else {
      platform_.Send(stage::PointerPressed{});
    }
    return;
  }
  const bool rising = jogo.VelY < 0;
  if (rising && !rising_) {
    constexpr Double kMisses = 0.002;
    constexpr Double kBeside = 3;
    aim_ = Chance(kMisses) ? kBeside : Between(-0.9, 0.9);
  }
  rising_ = rising;

  const Landing landing = WhereItLands(jogo);
  constexpr int kMustBeThere = 3;  // beats before the ball lands
  const Double sprite = jogo.Imgbonus.Left;
  const Double above = jogo.User.Top - (jogo.Imgbonus.Top + jogo.Imgbonus.Height);
  const bool bonus_near = jogo.Imgbonus.Visible && jogo.BonusCaindo > 0 && above < 200;
  if (landing.beats > kMustBeThere && bonus_near) {
    const bool at_right = sprite > jogo.Width / 2;
    const Double away = at_right ? 0 : jogo.Width - jogo.User.Width;
    MovePaddle(jogo, wanted_ ? sprite : away);
  } else {
    MovePaddle(jogo, PaddleForBall(jogo, landing.middle));
  }
}

Double Bot::PaddleForBall(game& jogo, Double landing) const {
  const Double half = jogo.User.Width / 2;
  return landing - half - aim_ * half;
}

/// The pointer stays on the bare form between the paddle and the status bar.
void Bot::MovePaddle(game& jogo, Double left) {
  const stage::Units units = jogo.InteriorUnits();
  const Double y = (jogo.User.Top + jogo.User.Height + jogo.statusbar.Top) / 2;
  const Double x = std::clamp<Double>(left, 0, jogo.Width - jogo.User.Width);
  platform_.MoveTo(x * units.x, y * units.y);
}

}  // namespace bot
