// How levels play: what the bot meets in each of them, and what no level may ask of a player.
#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "core/game.h"

namespace bot {

/// One level played to its end.
struct LevelPlay {
  bool ended = false;
  stage::Double minutes = 0;
  stage::Double drought = 0;  // the longest time without a block gone, s
  int hard_hits = 0;
  stage::Double unseen = 0;  // s in which nothing but unseen blocks was left to hit
};

/// What is measured at one look after another.
class LevelWatch {
 public:
  /// `sounds` are those started since the last look.
  void Look(korvane::game& jogo, stage::Moment now, std::span<const std::string> sounds);
  /// The play up to the last look.
  LevelPlay Play(bool ended) const;

 private:
  stage::Moment start_{-1};
  stage::Moment now_{};
  stage::Moment last_gone_{};
  stage::Moment drought_{};
  stage::Moment unseen_{};
  int gone_ = 0;
  int hard_hits_ = 0;
};

/// A level in one series, over some plays: medians, and the mean of the time with unseen blocks only.
struct LevelFigures {
  LevelFigures(int its_serie, int its_number, std::vector<LevelPlay> plays);

  /// "A-12".
  std::string Name() const;

  int serie = 0;
  int number = 0;
  bool ended = true;  // each of the plays
  stage::Double minutes = 0;
  stage::Double drought = 0;
  stage::Double hard_hits = 0;
  stage::Double unseen = 0;
};

/// The bot plays the level of the program's folder `folder` once; it gives up after an hour. Raises Broken.
LevelPlay PlayLevel(const std::filesystem::path& folder, int number, int serie, std::uint32_t seed);

/// What levels of one series, in order, must not do: make the player wait, strike hard blocks or look for
/// unseen ones too long, or be easier than all of the five before. A line to each.
std::vector<std::string> BrokenLimits(std::span<const LevelFigures> series);

}  // namespace bot
