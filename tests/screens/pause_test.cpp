#include "screens/PicDeclerations.h"

#include <gtest/gtest.h>

namespace {

using namespace korvane;
using stage::Run;

struct Grid {
  const char* what;
  std::vector<std::string> rows;  // # is the colour that is looked for
  std::vector<Run> runs;
  std::vector<Run> seen;
};

TEST(Region, LeavesOutTheRunsOfOneColour) {
  const Grid grids[] = {{"none of it", {"..", ".."}, {}, {{0, 0, 2}, {1, 0, 2}}},
                        {"all of it", {"###", "###"}, {{0, 0, 3}, {1, 0, 3}}, {}},
                        {"one pixel", {"...", ".#."}, {{1, 1, 2}}, {{0, 0, 3}, {1, 0, 1}, {1, 2, 3}}},
                        {"two runs in a row", {"#.##."}, {{0, 0, 1}, {0, 2, 4}}, {{0, 1, 2}, {0, 4, 5}}},
                        {"from edge to edge", {".#", "#."}, {{0, 1, 2}, {1, 0, 1}}, {{0, 0, 1}, {1, 1, 2}}},
                        {"one column", {"#", ".", "#"}, {{0, 0, 1}, {2, 0, 1}}, {{1, 0, 1}}},
                        {"nothing", {}, {}, {}}};
  for (const Grid& grid : grids) {
    SCOPED_TRACE(grid.what);
    const int width = grid.rows.empty() ? 0 : int(grid.rows[0].size());
    stage::Bitmap bitmap{{width, int(grid.rows.size())}, {}};
    for (const std::string& row : grid.rows) {
      // A colour that is nearly the one is another.
      for (const char c : row) bitmap.pixels.push_back(c == '#' ? 0x102030 : 0x102031);
    }
    EXPECT_EQ(CorridasDaCor(bitmap, 0x102030), grid.runs);
    const auto region = RegiaoDeBitmap(bitmap, 0x102030);
    EXPECT_EQ(region->Size(), bitmap.size);
    EXPECT_EQ(region->Seen(), grid.seen);
  }
}

}  // namespace
