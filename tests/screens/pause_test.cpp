#include "screens/pause.h"

#include <gtest/gtest.h>

#include "screens/PicDeclerations.h"
#include "tests/player.h"

namespace {

using namespace tests;
using stage::Pixel;
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

struct Look {
  stage::PixelSize size;
  std::vector<Pixel> pixels;
  Pixel At(int x, int y) const { return pixels[std::size_t(y) * std::size_t(size.width) + std::size_t(x)]; }
};

Look LookAt(Mesa& mesa) {
  const stage::Framebuffer canvas = mesa.platform->Canvas().value();
  Look look{canvas.size, {}};
  for (int y = 0; y < canvas.size.height; ++y) {
    look.pixels.insert(look.pixels.end(), canvas.Row(y), canvas.Row(y) + canvas.size.width);
  }
  return look;
}

/// Pixels that are not the sign's over the field behind it; and how many pixels the sign has.
std::pair<int, int> WrongAndOwn(const Look& seen, const Look& field, const stage::Bitmap& sign,
                                PixelRect place) {
  int wrong = 0;
  int own = 0;
  for (int y = 0; y < seen.size.height; ++y) {
    for (int x = 0; x < seen.size.width; ++x) {
      const int column = x - place.left;
      const int row = y - place.top;
      const bool inside = column >= 0 && row >= 0 && column < sign.size.width && row < sign.size.height;
      const bool own_pixel = inside && sign.At(column, row) != 0;
      own += own_pixel ? 1 : 0;
      wrong += seen.At(x, y) != (own_pixel ? sign.At(column, row) : field.At(x, y)) ? 1 : 0;
    }
  }
  return {wrong, own};
}

TEST(Pause, ShowsItsOwnPixelsOverTheField) {
  for (const Double scale : {1.0, 1.37, 1.8, 3.6, 0.5}) {
    SCOPED_TRACE(scale);
    // A block lies behind the sign.
    Mesa mesa({{"levels/1.sav", "pisca,0,500,10,0\r\n4300,4500,1200,3000,5\r\n"}}, {16000, 9000}, scale);
    mesa.platform->Look(true);
    mesa.Beats(1);
    mesa.Palco().Repaint();
    const Look field = LookAt(mesa);
    stage::Stage& palco = mesa.Palco();
    const auto sign = palco.BitmapOf(*palco.Pictures.Named("pausa"));
    const PixelRect place =
        palco.Painting().View().ToPixels({(16000 - 1860) / 2.0, (9000 - 585) / 2.0, 1860, 585});
    const auto look = [&] {
      const auto [wrong, own] = WrongAndOwn(LookAt(mesa), field, *sign, place);
      EXPECT_EQ(wrong, 0);
      EXPECT_GT(own, 100 * scale * scale);
      EXPECT_LT(own, sign->size.width * sign->size.height);
      palco.Repaint();
      EXPECT_EQ(WrongAndOwn(LookAt(mesa), field, *sign, place).first, 0);
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
