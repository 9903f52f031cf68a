#include "tools/level/check.h"

#include <algorithm>

#include "levels/level_file.h"
#include "tools/level/reach.h"

namespace level {
namespace {

constexpr int kLongestInterval = 65535;  // ms
/// How much lower the last series lays the blocks.
constexpr int kLastShift = (3 * 9000 + 34) / 35;

struct IsOf {
  int type;
  bool operator()(const Block& block) const { return block.type == type; }
};

void Refuse(bool wrong, int record, int field, const char* why) {
  if (wrong) throw korvane::LevelError(why, record, field);
}

void CheckRule(const korvane::LevelRecord& record) {
  const int number = record.Number();
  if (record.Blinks()) {
    Refuse(record.BlinkingType() > kLastType, number, 2, "no such type of block");
    Refuse(record.BlinkInterval() > kLongestInterval, number, 3, "the interval is above 65535");
  }
  const int barred = record.BarredBonus();
  Refuse(barred < 0 || (barred > kLastBonus && barred != kAllBonuses), number, 4, "no such bonus");
}

Block CheckedBlock(const korvane::LevelRecord& record) {
  const int number = record.Number();
  const Block block{.record = number,
                    .top = record.Top(),
                    .left = record.Left(),
                    .height = record.Height(),
                    .width = record.Width(),
                    .type = record.Type()};
  Refuse(block.top < 0, number, 1, "above the field");
  Refuse(block.left < 0, number, 2, "left of the field");
  Refuse(block.height <= 0, number, 3, "the block has no height");
  Refuse(block.width <= 0, number, 4, "the block has no width");
  Refuse(block.Bottom() + kLastShift > Room::kLowest, number, 1, "too low for the paddle in series D");
  Refuse(block.Right() > Room::kFieldWidth, number, 2, "right of the field");
  Refuse(block.type < 1 || block.type > kLastType, number, 5, "no such type of block");
  return block;
}

void CheckLowest(const std::vector<Block>& blocks) {
  for (const Block& block : blocks) {
    Refuse(block.Bottom() > blocks.back().Bottom(), block.record, 1,
           "below the last block, where it cannot be hit");
  }
}

void CheckEnd(const std::vector<Block>& blocks) {
  const Block* const out_of_reach = OutOfReach(blocks);
  Refuse(out_of_reach != nullptr, out_of_reach == nullptr ? 0 : out_of_reach->record, 0,
         "the ball cannot reach the block, so the level never ends");
}

/// Hard blocks are left out of the count only if one of them is written as exactly 20.
void CheckHard(const std::vector<Block>& blocks, bool written) {
  const auto hard = std::find_if(blocks.begin(), blocks.end(), IsOf{kHard});
  Refuse(hard != blocks.end() && !written, hard == blocks.end() ? 0 : hard->record, 5,
         "a hard block that is not written 20 keeps the level from ending");
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

void CheckLevel(std::string_view text, std::vector<Block>& blocks) {
  bool hard_written = false;
  korvane::LevelReader reader(text);
  while (!reader.AtEnd()) {
    const korvane::LevelRecord record = reader.Next();
    if (record.IsRule()) {
      CheckRule(record);
      continue;
    }
    const Block block = CheckedBlock(record);
    Refuse(int(blocks.size()) == kMostBlocks, block.record, 0, "more than 598 blocks");
    blocks.push_back(block);
    hard_written = hard_written || record.TypeIs(kHard);
  }
  CheckLowest(blocks);
  CheckHard(blocks, hard_written);
  CheckEnd(blocks);
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
  std::vector<Block> blocks;
  try {
    CheckLevel(text, blocks);
  } catch (const korvane::LevelError& error) {
    verdict.fault = Fault{error.Record, error.Field, error.what()};
  }
  verdict.blocks = int(blocks.size());
  verdict.hard = int(std::count_if(blocks.begin(), blocks.end(), IsOf{kHard}));
  verdict.unseen = int(std::count_if(blocks.begin(), blocks.end(), IsOf{kUnseen}));
  verdict.hard_alone = HardAlone(blocks);
  return verdict;
}

}  // namespace level
