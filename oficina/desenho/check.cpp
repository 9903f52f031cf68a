#include "oficina/desenho/check.h"

#include <algorithm>

#include "oficina/desenho/reach.h"
#include "oficina/desenho/registro.h"

namespace desenho {
namespace {

struct IsOf {
  int type;
  bool operator()(const Block& block) const { return block.type == type; }
};

/// The blocks of a level, and the record of the file that each stands in.
struct Level {
  std::vector<Block> blocks;
  std::vector<int> records;
};

[[noreturn]] void Refuse(const Level& level, std::size_t block, int field, const char* why) {
  throw korvane::LevelError(why, level.records[block], field);
}

void CheckLowest(const Level& level) {
  for (std::size_t i = 0; i < level.blocks.size(); ++i) {
    if (level.blocks[i].Bottom() > level.blocks.back().Bottom())
      Refuse(level, i, 1, "below the last block, where it cannot be hit");
  }
}

/// Hard blocks are left out of the count only if one of them is written as exactly 20.
void CheckHard(const Level& level, bool written) {
  const auto hard = std::find_if(level.blocks.begin(), level.blocks.end(), IsOf{kHard});
  if (hard != level.blocks.end() && !written)
    Refuse(level, std::size_t(hard - level.blocks.begin()), 5,
           "a hard block that is not written 20 keeps the level from ending");
}

void CheckEnd(const Level& level) {
  const std::vector<std::size_t> out_of_reach = OutOfReach(level.blocks);
  if (!out_of_reach.empty())
    Refuse(level, out_of_reach.front(), 0, "the ball cannot reach the block, so the level never ends");
}

bool Neighbours(const Block& a, const Block& b) {
  return a.left - b.Right() <= kWidestGap && b.left - a.Right() <= kWidestGap &&
         a.top - b.Bottom() <= kWidestGap && b.top - a.Bottom() <= kWidestGap;
}

int HardAlone(const std::vector<Block>& blocks) {
  const auto beside = [&](const Block& block) {
    return std::any_of(blocks.begin(), blocks.end(), [&](const Block& other) {
      return &other != &block && other.type == kHard && Neighbours(block, other);
    });
  };
  return int(std::count_if(blocks.begin(), blocks.end(),
                           [&](const Block& block) { return block.type == kHard && !beside(block); }));
}

void CheckLevel(std::string_view text, Level& level) {
  bool hard_written = false;
  Regra regra;
  korvane::LevelReader reader(text);
  while (!reader.AtEnd()) {
    const korvane::LevelRecord record = reader.Next();
    if (record.IsRule()) {
      SomaRegra(record, regra);
      continue;
    }
    SomaBloco(record, level.blocks);
    level.records.push_back(record.Number());
    hard_written = hard_written || record.TypeIs(kHard);
  }
  CheckLowest(level);
  CheckHard(level, hard_written);
  CheckEnd(level);
}

}  // namespace

std::string Fault::Text() const {
  if (record == 0) return why;
  const std::string place = "record " + std::to_string(record);
  return field == 0 ? place + ": " + why : place + ", field " + std::to_string(field) + ": " + why;
}

std::string Verdict::Text() const {
  if (fault) return fault->Text();
  return "ok: " + std::to_string(blocks) + " blocks, " + std::to_string(hard) + " hard, " +
         std::to_string(unseen) + " unseen, " + std::to_string(hard_alone) + " hard alone";
}

Verdict Check(std::string_view text) {
  Verdict verdict;
  Level level;
  try {
    CheckLevel(text, level);
  } catch (const korvane::LevelError& error) {
    verdict.fault = FaltaDe(error);
  }
  const std::vector<Block>& blocks = level.blocks;
  verdict.blocks = int(blocks.size());
  verdict.hard = int(std::count_if(blocks.begin(), blocks.end(), IsOf{kHard}));
  verdict.unseen = int(std::count_if(blocks.begin(), blocks.end(), IsOf{kUnseen}));
  verdict.hard_alone = HardAlone(blocks);
  return verdict;
}

}  // namespace desenho
