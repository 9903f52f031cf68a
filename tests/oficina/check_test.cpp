// What is told of levels that are no good.
#include "oficina/desenho/check.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

#include "oficina/desenho/map.h"
#include "oficina/desenho/reach.h"
#include "tests/mesa.h"

namespace {

using namespace tests;

std::string Times(int count, const std::string& record) {
  std::string text;
  for (int i = 0; i < count; ++i) text += record;
  return text;
}

struct Case {
  std::string text;
  const char* verdict;  // its beginning, if it ends in ": " or all is well
};

const std::string kBlock = "600,3000,250,480,5\n";
/// Hard walls all round a place 2000 wide, but for what the test leaves out.
const std::string kWalls = "1000,3000,250,3000,20\n1250,3000,2000,250,20\n1250,5750,2000,250,20\n";
const std::string kFloor = "3250,3000,250,3000,20\n";

const Case kCases[] = {{kBlock, "ok: 1 blocks, 0 hard, 0 unseen"},
                       {"pisca,5,800,10,0\n600,3000,250,480,20\n600,5000,250,480,21\n" + kBlock,
                        "ok: 3 blocks, 1 hard, 1 unseen, 1 hard alone"},
                       {"", "ok: 0 blocks"},
                       {"pisca,5,65535,8,0\n" + kBlock, "ok: 1 blocks"},
                       {Times(598, kBlock), "ok: 598 blocks"},
                       {"600,3000,250,480,20\n", "ok: 1 blocks, 1 hard"},
                       {kWalls + "2000,4200,250,480,5\n2900,4200,250,480,5\n",
                        "record 2, field 1: below the last block, where it cannot be hit"},
                       {kWalls + "2000,4200,250,480,5\n3250,3000,250,500,20\n", "ok: 5 blocks, 4 hard"},
                       // As the reader tells it.
                       {kBlock + "600,3000,250", "record 2, field 4: the file ends inside the record"},
                       {kBlock + "\n", "record 2, field 2: the file ends inside the record"},
                       {kBlock + "600,x,250,480,5\n", "record 2, field 2: "},
                       {"pisca,5,800,none,0\n", "record 1, field 4: "},
                       {"600,3000,250,480,40000\n", "record 1, field 5: "},
                       {"600,3000,40000,480,5\n", "record 1, field 3: "},
                       {"Pisca,5,800,0,0\n", "record 1, field 1: "},
                       // What the reader lets pass and a level must not hold.
                       {"pisca,5,65536,0,0\n" + kBlock, "record 1, field 3: the interval is above 65535"},
                       {"pisca,23,800,0,0\n" + kBlock, "record 1, field 2: no such type of block"},
                       {"pisca,0,800,9,0\n" + kBlock, "record 1, field 4: no such bonus"},
                       {kBlock + "600,5000,250,480,0\n", "record 2, field 5: no such type of block"},
                       {kBlock + "600,5000,250,480,23\n", "record 2, field 5: no such type of block"},
                       {kBlock + "600,5000,250,480,22.4\n", "ok: 2 blocks"},
                       {kBlock + "600,5000,250,480,22.6\n", "record 2, field 5: no such type of block"},
                       {"-1,3000,250,480,5\n", "record 1, field 1: above the field"},
                       {"600,-1,250,480,5\n", "record 1, field 2: left of the field"},
                       {"600,11521,250,480,5\n", "record 1, field 2: right of the field"},
                       {"600,11520,250,480,5\n", "ok: 1 blocks"},
                       {"600,3000,1,480,5\n", "ok: 1 blocks"},
                       {"600,3000,250,1,5\n", "ok: 1 blocks"},
                       {"600,3000,0,480,5\n", "record 1, field 3: the block has no height"},
                       {"600,3000,250,0,5\n", "record 1, field 4: the block has no width"},
                       // Series D lays it 771.4 lower, and the ball rests on the paddle at 8274.9.
                       {"7252,3000,250,480,5\n", "ok: 1 blocks"},
                       {"7260,3000,250,480,5\n", "record 1, field 1: too low for the paddle in series D"},
                       {"900,3000,250,480,3\n600,3000,250,480,5\n",
                        "record 1, field 1: below the last block, where it cannot be hit"},
                       {Times(599, kBlock), "record 599: more than 598 blocks"},
                       // Hard by its type, yet the level does not count as one with hard blocks.
                       {"600,3000,250,480,20.4\n" + kBlock,
                        "record 1, field 5: a hard block that is not written 20 keeps the level from ending"},
                       {"600,3000,250,480,20.4\n600,5000,250,480,20\n" + kBlock, "ok: 3 blocks, 2 hard"},
                       // A way in that is narrower than the ball is none.
                       {kWalls + "2000,4200,250,480,5\n" + kFloor,
                        "record 4: the ball cannot reach the block, so the level never ends"},
                       {kWalls + "2000,4200,250,480,5\n3250,3000,250,2500,20\n", "ok: 5 blocks"},
                       {kWalls + "2000,4200,250,480,5\n3250,3000,250,2510,20\n",
                        "record 4: the ball cannot reach the block, so the level never ends"},
                       // Other blocks are ways in themselves.
                       {kWalls + "2000,4200,250,480,5\n3250,3250,250,2500,5\n", "ok: 5 blocks"},
                       // Nor is one that the upper wall leaves.
                       {"200,3000,250,480,5\n480,2000,250,2500,20\n",
                        "record 1: the ball cannot reach the block, so the level never ends"},
                       {"510,3000,250,480,5\n770,2900,250,480,20\n", "ok: 2 blocks"}};

TEST(Check, NamesTheRecordAndTheFieldThatAreWrong) {
  for (const Case& test : kCases) {
    const std::string verdict = desenho::Check(test.text).Text();
    const std::string_view expected = test.verdict;
    const bool whole =
        !expected.ends_with(": ") && (!expected.starts_with("ok") || expected.ends_with(" alone"));
    EXPECT_TRUE(whole ? verdict == expected : verdict.starts_with(expected))
        << test.text.substr(0, 120) << "expected " << test.verdict << "\ngot " << verdict;
  }
}

TEST(Check, TakesTheBallAsLargeAsItEverIs) {
  Mesa mesa({{"levels/1.sav", kQuietLevel}}, {.screen = stage::ScreenFor({5, 4})});
  mesa.Beats(1);
  const game& jogo = mesa.Jogo();
  const Double across = 12000 / mesa.Palco().Screen.Width;
  const std::pair<int, Double> sizes[] = {{desenho::Ball::kWidth, jogo.ball.Width * across},
                                          {desenho::Ball::kHeight, Double(jogo.ball.Height)}};
  for (const auto& [taken, real] : sizes) {
    EXPECT_GE(taken, real);
    EXPECT_LE(taken, real + 2);
  }
  EXPECT_EQ(desenho::Field::kPaddle, stage::Int(jogo.ball.Top));
}

TEST(Check, FindsAllThatTheBallCannotReach) {
  const auto walled =
      desenho::LeDesenho(kWalls + "2000,4200,250,480,5\n" + kBlock + "2500,4200,250,480,21\n" + kFloor);
  EXPECT_EQ(desenho::OutOfReach(walled.desenho.blocos), (std::vector<std::size_t>{3, 5}));
}

struct Rect {
  int left, top, right, bottom;
  bool Touches(const Rect& other) const {
    return left <= other.right && other.left <= right && top <= other.bottom && other.top <= bottom;
  }
  bool Overlaps(const Rect& other) const {
    return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
  }
};

/// Where the ball overlaps a block, as a rectangle of its own top left corner.
Rect Shadow(const desenho::Block& block) {
  return {block.left - desenho::Ball::kWidth, block.top - desenho::Ball::kHeight, block.Right(),
          block.Bottom()};
}

/// The places of the ball, in parts in which nothing changes: those that no hard block keeps it from.
std::vector<Rect> OpenCells(const std::vector<desenho::Block>& blocks, const Rect& all) {
  std::set<int> xs{all.left, all.right};
  std::set<int> ys{all.top, all.bottom};
  for (const auto& block : blocks) {
    const Rect shadow = Shadow(block);
    for (const int x : {shadow.left, shadow.right}) xs.insert(std::clamp(x, all.left, all.right));
    for (const int y : {shadow.top, shadow.bottom}) ys.insert(std::clamp(y, all.top, all.bottom));
  }
  std::vector<Rect> cells;
  for (auto y = ys.begin(); std::next(y) != ys.end(); ++y) {
    for (auto x = xs.begin(); std::next(x) != xs.end(); ++x)
      cells.push_back({*x, *y, *std::next(x), *std::next(y)});
  }
  std::erase_if(cells, [&](const Rect& cell) {
    return std::ranges::any_of(blocks, [&](const auto& block) {
      return block.type == desenho::kHard && cell.Overlaps(Shadow(block));
    });
  });
  return cells;
}

/// What the ball cannot reach, found in the plainest way: it goes on from cell to cell until nothing changes.
std::vector<std::size_t> PlainlyOutOfReach(const std::vector<desenho::Block>& blocks) {
  using desenho::Ball;
  const Rect all{Ball::kWidth, Ball::kHeight, desenho::Field::kRight - Ball::kWidth, desenho::Field::kPaddle};
  std::vector<Rect> open = OpenCells(blocks, all);
  std::vector<Rect> reached;
  const auto reach = [&](const Rect& cell) {
    return cell.bottom == all.bottom || std::ranges::any_of(reached, [&](const Rect& from) {
             return cell.Touches(from) && (cell.top == from.top || cell.left == from.left);
           });
  };
  for (auto next = std::ranges::find_if(open, reach); next != open.end();
       next = std::ranges::find_if(open, reach)) {
    reached.push_back(*next);
    open.erase(next);
  }
  std::vector<std::size_t> out;
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    const bool touched = std::ranges::any_of(
        reached, [shadow = Shadow(blocks[i])](const Rect& cell) { return cell.Touches(shadow); });
    if (blocks[i].type != desenho::kHard && !touched) out.push_back(i);
  }
  return out;
}

TEST(Check, FindsWhatAPlainSearchFinds) {
  std::mt19937 draws(11);
  const auto any = [&](int from, int to, int step) {
    return from + int(draws() % unsigned((to - from) / step)) * step;
  };
  std::size_t found = 0;
  for (int round = 0; round < 300; ++round) {
    std::vector<desenho::Block> blocks;
    for (int i = 0; i < 9; ++i) {
      const bool hard = i < 7;
      const bool upright = draws() % 2 == 0;
      const int width = hard && !upright ? any(3000, 11500, 250) : 250;
      const int height = hard && upright ? any(2500, 7000, 250) : 250;
      // Now and then as far from another as the ball is large, or one more or less.
      const auto odd = [&](int ball) { return int(draws() % 2) * ball + int(draws() % 3) - 1; };
      const int top = std::max(0, any(0, 7252 - height, 50) + odd(desenho::Ball::kHeight));
      const int left = std::max(0, any(0, 11758 - width, 50) + odd(desenho::Ball::kWidth));
      blocks.push_back(
          {std::min(top, 7502 - height), std::min(left, 12000 - width), height, width, hard ? 20 : 5});
    }
    const auto out = desenho::OutOfReach(blocks);
    ASSERT_EQ(out, PlainlyOutOfReach(blocks)) << round;
    found += out.size();
  }
  EXPECT_GT(found, 50U);
}

TEST(Check, TakesWhatLiesOneBehindAWallForOutOfReach) {
  using Blocks = std::vector<desenho::Block>;
  // Two walls with a slot between them that the ball does not fit into, and a third that closes it behind.
  const Blocks lying{{1000, 0, 600, 5000, 20}, {1000, 5200, 600, 6500, 20}};
  const Blocks standing{{0, 5000, 3000, 600, 20}, {3200, 5000, 4302, 600, 20}};
  for (const int behind : {0, 1}) {
    const std::pair<Blocks, Blocks> slots[] = {
        {lying, {{1250, 5000, 350, 200, 20}, {1000 + behind, 5000, 100, 200, 5}}},
        {lying, {{1000, 5000, 350, 200, 20}, {1500 - behind, 5000, 100, 200, 5}}},
        {standing, {{3000, 5250, 200, 350, 20}, {3000, 5000 + behind, 200, 100, 5}}},
        {standing, {{3000, 5000, 200, 350, 20}, {3000, 5500 - behind, 200, 100, 5}}}};
    for (const auto& [walls, slot] : slots) {
      Blocks blocks = walls;
      blocks.insert(blocks.end(), slot.begin(), slot.end());
      EXPECT_EQ(desenho::OutOfReach(blocks).size(), std::size_t(behind))
          << slot[1].top << ' ' << slot[1].left;
    }
  }
}

TEST(Check, CountsTheHardBlocksThatStandAlone) {
  const std::string hard = "600,3000,250,480,20\n";
  const auto alone = [&](const std::string& text) {
    return desenho::Check(text + "7000,0,250,480,5\n").hard_alone;
  };
  EXPECT_EQ(alone(hard), 1);
  EXPECT_EQ(alone(hard + "600,3540,250,480,20\n"), 0);
  EXPECT_EQ(alone(hard + "600,3541,250,480,20\n"), 2);
  EXPECT_EQ(alone(hard + "910,2460,250,480,20\n"), 0);
  EXPECT_EQ(alone(hard + "911,3000,250,480,20\n"), 2);
  EXPECT_EQ(alone(hard + "600,3490,250,480,5\n"), 1);
}

TEST(Check, FindsNothingWrongWithTheLevelsOfTheGame) {
  int levels = 0;
  int with_hard_alone = 0;
  for (const auto& entry :
       std::filesystem::directory_iterator(std::string(KORVANE_SOURCE) + "/assets/levels")) {
    if (entry.path().extension() != ".sav") continue;
    ++levels;
    const std::string text = ReadFile(entry.path());
    const desenho::Verdict verdict = desenho::Check(text);
    EXPECT_EQ(verdict.fault ? verdict.Text() : "", "") << entry.path();
    EXPECT_FALSE(text.starts_with("pisca,21,"))
        << entry.path() << " ends in the dark: unseen blocks that blink";
    with_hard_alone += verdict.hard_alone > 0 ? 1 : 0;
    auto map = entry.path().parent_path() / "maps" / entry.path().stem();
    map += ".txt";
    EXPECT_EQ(desenho::SavFromMap(ReadFile(map)), text) << entry.path();
  }
  EXPECT_EQ(levels, 40);
  EXPECT_LE(with_hard_alone, 5);
}

}  // namespace
