#include "screens/pause.h"

#include <gtest/gtest.h>

#include "screens/PicDeclerations.h"
#include "tests/player.h"

namespace {

using namespace tests;
using stage::PixelRect;
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

stage::Bitmap LookAt(Mesa& mesa) {
  const stage::Framebuffer canvas = mesa.platform->Canvas().value();
  return {canvas.size, {canvas.Row(0), canvas.Row(canvas.size.height)}};
}

/// Lays the sign's own pixels over a picture and tells how many they are.
int Lay(const stage::Bitmap& sign, PixelRect place, stage::Bitmap& picture) {
  int own = 0;
  for (int y = 0; y < sign.size.height; ++y) {
    for (int x = 0; x < sign.size.width; ++x) {
      if (sign.At(x, y) == 0) continue;
      picture.pixels[picture.Index(place.left + x, place.top + y)] = sign.At(x, y);
      ++own;
    }
  }
  return own;
}

TEST(Pause, ShowsItsOwnPixelsOverTheField) {
  for (const Double scale : {1.37, 3.6, 0.5}) {
    SCOPED_TRACE(scale);
    // A block lies behind the sign.
    Mesa mesa({{"levels/1.sav", "pisca,0,500,10,0\r\n4300,4500,1200,3000,5\r\n"}},
              {.screen = {16000, 9000}, .scale = scale});
    mesa.platform->Look(true);
    mesa.Beats(1);
    mesa.Palco().Repaint();
    const stage::Bitmap field = LookAt(mesa);
    stage::Stage& palco = mesa.Palco();
    const auto sign = palco.BitmapOf(*palco.Pictures.Named("pausa"));
    const PixelRect place =
        palco.Painting().View().ToPixels({(16000 - 1860) / 2.0, (9000 - 585) / 2.0, 1860, 585});
    stage::Bitmap held = field;
    const int own = Lay(*sign, place, held);
    EXPECT_GT(own, 100 * scale * scale);
    EXPECT_LT(own, sign->size.width * sign->size.height);
    const auto look = [&] {
      EXPECT_EQ(LookAt(mesa).pixels, held.pixels);
      palco.Repaint();
      EXPECT_EQ(LookAt(mesa).pixels, held.pixels);
      EXPECT_FALSE(mesa.programa->RegiaoPausa.expired());
      mesa.Press(80);
    };
    for (int time = 0; time < 2; ++time) {
      mesa.Press(80);
      Play(mesa, {look}, [&] { mesa.Do(); });
      mesa.Palco().PaintNow();
      EXPECT_EQ(LookAt(mesa).pixels, field.pixels);
    }
  }
}

}  // namespace
