#include "oficina/bot/level_plays.h"

#include <algorithm>
#include <iomanip>
#include <limits>
#include <sstream>

#include "oficina/bot/session.h"

namespace bot {
namespace {

using korvane::game;
using stage::Double;
using stage::Moment;

// What is asked of every level, over its plays.
constexpr Double kLongestDrought = 30;  // s
constexpr Double kMostHardHits = 200;
constexpr Double kLongestUnseen = 5;  // s
constexpr int kRun = 5;               // levels that need not be harder than one another
/// What a median over a hundred plays may be off by, in parts of itself.
constexpr Double kUncertain = 0.07;

/// Mazes of hard walls, where waiting is felt most.
constexpr int kMazes[] = {24, 38};
constexpr Double kLongestDroughtInMaze = 15;  // s

Double LongestDrought(int number) {
  const bool maze = std::find(std::begin(kMazes), std::end(kMazes), number) != std::end(kMazes);
  return maze ? kLongestDroughtInMaze : kLongestDrought;
}

std::string Number(Double value) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(1) << value;
  return text.str();
}

Double Seconds(Moment time) { return std::chrono::duration<Double>(time).count(); }

struct Left {
  int gone = 0;
  int unseen = 0;
  int others = 0;  // but for hard blocks, which may stay when a level ends
};

Left WhatIsLeft(game& jogo) {
  Left left;
  for (korvane::Integer i = 1; i < jogo.ProximoBox; i = i + 1) {
    const int tipo = jogo.Module1.TipoBox(i);
    if (tipo == korvane::kRigido) continue;
    ++(tipo == 0 ? left.gone : tipo == korvane::kInvisivel ? left.unseen : left.others);
  }
  return left;
}

template <class Member>
Double Median(std::vector<LevelPlay>& plays, Member member) {
  std::sort(plays.begin(), plays.end(),
            [member](const LevelPlay& a, const LevelPlay& b) { return a.*member < b.*member; });
  const std::size_t half = plays.size() / 2;
  const Double upper = plays[half].*member;
  return plays.size() % 2 == 1 ? upper : (upper + plays[half - 1].*member) / 2;
}

}  // namespace

void LevelWatch::Look(game& jogo, Moment now, std::span<const std::string> sounds) {
  const Left left = WhatIsLeft(jogo);
  if (start_ < Moment{0}) {
    start_ = last_gone_ = now_ = now;
    gone_ = left.gone;
  }
  if (left.unseen > 0 && left.others == 0) unseen_ += now - now_;
  if (left.gone > gone_) last_gone_ = now;
  gone_ = left.gone;
  drought_ = std::max(drought_, now - last_gone_);
  hard_hits_ += int(std::count(sounds.begin(), sounds.end(), "hard.wav"));
  now_ = now;
}

LevelPlay LevelWatch::Play(bool ended) const {
  return {.ended = ended,
          .minutes = Seconds(now_ - start_) / 60,
          .drought = Seconds(drought_),
          .hard_hits = hard_hits_,
          .unseen = Seconds(unseen_)};
}

LevelFigures::LevelFigures(int its_serie, int its_number, std::vector<LevelPlay> plays)
    : serie(its_serie),
      number(its_number),
      minutes(Median(plays, &LevelPlay::minutes)),
      drought(Median(plays, &LevelPlay::drought)),
      hard_hits(Median(plays, &LevelPlay::hard_hits)) {
  for (const LevelPlay& play : plays) {
    ended = ended && play.ended;
    unseen += play.unseen / Double(plays.size());
  }
}

LevelPlay PlayLevel(const std::filesystem::path& folder, int number, int serie, std::uint32_t seed) {
  constexpr Moment kLongest = std::chrono::minutes(60);
  constexpr int kLives = 5;
  std::filesystem::remove(folder / "config.ini");  // the speed of the play before would make this one another
  Session session(folder, seed);
  session.bot.wanders = false;
  session.bot.stays_in_level = true;
  Moment start{-1};
  bool ended = false;
  LevelWatch watch;
  session.Run([&](game& jogo) {
    const Moment now = session.platform.Now();
    if (session.programa.Palco.ActiveForm()->Name() != "game") return;
    const bool speed_found = jogo.Module1.Iniciado && !jogo.timerDefine.Enabled;
    if (start < Moment{0}) {
      if (!speed_found) return;
      start = now;
      GoTo(jogo, serie, number);
    }
    jogo.Vidas = kLives;  // the game does not end under the bot
    ended = jogo.FaseAtual != number || jogo.Serie != serie;
    if (ended || now - start >= kLongest) throw Enough{};
    watch.Look(jogo, now, session.platform.TakeSounds());
  });
  return watch.Play(ended);
}

std::string LevelFigures::Name() const {
  return std::string(1, "ABCD"[serie]) + '-' + std::to_string(number);
}

std::vector<std::string> BrokenLimits(std::span<const LevelFigures> series) {
  std::vector<std::string> broken;
  Double easiest_before = 0;
  Double easiest = 0;  // of an incomplete run nothing is asked
  for (const LevelFigures& level : series) {
    const auto below = [&](Double value, Double limit, const char* what) {
      if (value < limit) return;
      broken.push_back(level.Name() + ": " + Number(value) + what + ", not below " + Number(limit));
    };
    if ((level.number - 1) % kRun == 0)
      easiest_before = std::exchange(easiest, std::numeric_limits<Double>::infinity());
    easiest = std::min(easiest, level.minutes);
    if (!level.ended) broken.push_back(level.Name() + ": not finished");
    below(level.drought, LongestDrought(level.number), " s without a block gone");
    below(level.hard_hits, kMostHardHits, " hits on hard blocks");
    below(level.unseen, kLongestUnseen, " s with only unseen blocks left");
    if (level.minutes < easiest_before * (1 - kUncertain)) {
      broken.push_back(level.Name() + ": " + Number(level.minutes) +
                       " minutes, easier than the five levels before its five (" + Number(easiest_before) +
                       ")");
    }
  }
  return broken;
}

}  // namespace bot
