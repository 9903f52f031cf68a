// What is drawn holds what the game counts on: sizes that take part in play, black corners, colours that are
// told apart.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <utility>

#include "assets/assets.h"
#include "stage/machines/sdl/artist.h"
#include "stage/painting/shaped_drawing.h"

namespace {

using namespace stage;

struct Pictures : testing::Test {
  Bitmap DrawnAt(PictureRef picture, PixelSize size) { return artist.Draw(DrawingFor(*picture, size), size); }
  Bitmap Drawn(PictureRef picture, double scale = 1) {
    return DrawnAt(picture, {int(picture->natural.width * scale), int(picture->natural.height * scale)});
  }
  sdl::Artist artist;
  PictureStore store{korvane::Assets()};
};

int Part(Pixel pixel, int shift) { return int(pixel >> shift & 255U); }
int Light(Pixel pixel) { return Part(pixel, 16) + Part(pixel, 8) + Part(pixel, 0); }
int Distance(Pixel a, Pixel b) {
  int most = 0;
  for (const int shift : {0, 8, 16}) most = std::max(most, std::abs(Part(a, shift) - Part(b, shift)));
  return most;
}

Pixel MostCommon(const Bitmap& bitmap) {
  std::map<Pixel, int> counts;
  for (const Pixel pixel : bitmap.pixels) ++counts[pixel];
  return std::ranges::max_element(counts, {}, [](const auto& count) { return count.second; })->first;
}

double MeanLight(const Bitmap& bitmap, int left, int top, int right, int bottom) {
  double sum = 0;
  for (int y = top; y < bottom; ++y) {
    for (int x = left; x < right; ++x) sum += Light(bitmap.At(x, y));
  }
  return sum / ((right - left) * (bottom - top));
}

TEST_F(Pictures, HaveTheSizesThatPlayCountsOn) {
  std::map<std::string, PixelSize> sizes{
      {"abertura", {246, 39}},  {"titulo", {246, 62}},    {"pausa", {112, 35}},     {"barra", {118, 23}},
      {"statusbar", {606, 13}}, {"Imageball0", {15, 15}}, {"Imageball1", {15, 15}}, {"Imageball2", {16, 16}}};
  for (int code = 1; code <= 8; ++code) {
    sizes["ImagePower" + std::to_string(code)] = {41, 39};
    sizes["ImageBonusParado" + std::to_string(code)] = code == 3 ? PixelSize{42, 41} : PixelSize{43, 43};
  }
  for (const auto& [name, size] : sizes) EXPECT_EQ(store.Named(name)->natural, size) << name;
  EXPECT_THROW(store.Named("ImagePedra21"), RuntimeError);
}

TEST_F(Pictures, OfRoundThingsHaveBlackCorners) {
  for (const char* name : {"Imageball0", "Imageball1", "Imageball2", "barra"}) {
    for (const double scale : {1.0, 3.6}) {
      const Bitmap drawn = Drawn(store.Named(name), scale);
      const auto [right, bottom] = PixelSize{drawn.size.width - 1, drawn.size.height - 1};
      for (const Pixel corner :
           {drawn.At(0, 0), drawn.At(right, 0), drawn.At(0, bottom), drawn.At(right, bottom)}) {
        EXPECT_EQ(corner, 0U) << name;
      }
    }
  }
}

TEST_F(Pictures, OfTheBarAreStripesToTheValue) {
  const Pixel stripes[] = {0,        0,        0,        0xF7B6A5, 0xE76139, 0x8C2000, 0x310800,
                           0xB5B6B5, 0x949694, 0x6B696B, 0x393839, 0x181818, 0};
  const Bitmap bar = Drawn(store.Named("statusbar"));
  for (int y = 0; y < 13; ++y) {
    for (const int x : {0, 300, 605}) EXPECT_EQ(bar.At(x, y), stripes[y]) << x << ", " << y;
  }
}

TEST_F(Pictures, OfThePauseSignAreHalfOutside) {
  const Bitmap sign = Drawn(store.Named("pausa"));
  const auto black = std::ranges::count(sign.pixels, 0U);
  EXPECT_NEAR(double(black) / double(sign.pixels.size()), 0.54, 0.03);
  EXPECT_EQ(*std::ranges::max_element(sign.pixels, {}, Light), 0xFFFFBFU);
}

TEST_F(Pictures, OfThePauseSignAreOutlinedDarkOnEverySide) {
  constexpr int kDark = 3 * 0x60;
  for (const double scale : {1.0, 1.8, 3.6}) {
    const Bitmap sign = Drawn(store.Named("pausa"), scale);
    int core = 0;
    for (int y = 1; y < sign.size.height - 1; ++y) {
      for (int x = 1; x < sign.size.width - 1; ++x) {
        if (Light(sign.At(x, y)) < kDark) continue;
        core += Distance(sign.At(x, y), 0xFFFFBF) < 16 ? 1 : 0;
        for (const Pixel beside :
             {sign.At(x - 1, y), sign.At(x + 1, y), sign.At(x, y - 1), sign.At(x, y + 1)}) {
          ASSERT_NE(beside, 0U) << x << ", " << y << " at scale " << scale;
        }
      }
    }
    EXPECT_GT(core, int(sign.pixels.size()) / 5) << scale;
  }
}

TEST_F(Pictures, OfPlatesAreFlatAndBevelled) {
  for (int code = 1; code <= 8; ++code) {
    EXPECT_LE(Distance(MostCommon(Drawn(store.Named("ImagePower", code))), 0x506790), 3) << code;
    const Bitmap parked = Drawn(store.Named("ImageBonusParado", code));
    EXPECT_LE(Distance(MostCommon(parked), 0xEFA618), 3) << code;
    EXPECT_LT(Light(parked.At(0, 20)), Light(0xEFA618) / 2) << code;
  }
}

TEST_F(Pictures, OfBlocksShowTheirFaceAndAreToldApart) {
  const std::map<int, Pixel> faces{
      {1, 0x5282F7},  {2, 0xFF6931},  {3, 0x73B25A},  {4, 0xF7BA39},  {5, 0x8C8A8C},  {6, 0xD5BD7B},
      {7, 0x527320},  {8, 0xD57329},  {9, 0xDED594},  {10, 0xB4D375}, {11, 0x936B51}, {12, 0xC5DE9C},
      {13, 0xB49C62}, {14, 0x83B494}, {15, 0xC47B48}, {16, 0xFFB494}, {17, 0xE6836A}, {18, 0xBD5294},
      {19, 0x70BFB0}, {20, 0xFFFF00}, {22, 0xBEC87D}};
  std::map<int, Bitmap> blocks;
  for (const auto& [type, face] : faces) {
    const Bitmap block = Drawn(store.Named("ImagePedra", type));
    const auto [w, h] = block.size;
    EXPECT_LE(Distance(MostCommon(block), face), 12) << type;
    if (type != 20) {
      const double inner = MeanLight(block, 4, 5, w - 4, h - 5);
      EXPECT_GT(MeanLight(block, 2, 0, w - 2, 2), inner) << type;
      EXPECT_LT(MeanLight(block, 2, h - 2, w - 2, h), inner) << type;
      EXPECT_LT(MeanLight(block, w - 2, 2, w, h - 2), inner) << type;
    }
    blocks.emplace(type, DrawnAt(store.Named("ImagePedra", type), {31, 15}));
  }
  for (const auto& [a, one] : blocks) {
    for (const auto& [b, other] : blocks) {
      if (a >= b) continue;
      std::size_t unlike = 0;
      for (std::size_t i = 0; i < one.pixels.size(); ++i) {
        if (Distance(one.pixels[i], other.pixels[i]) > 24) ++unlike;
      }
      EXPECT_GT(unlike, one.pixels.size() / 5) << a << " and " << b;
    }
  }
}

/// Pixels of a display of so many lines, four times as wide as three times high or wider, that a block
/// covers.
struct Display {
  double scale;
  double widening;
};
constexpr Display kDisplays[] = {{1, 1}, {1.8, 4.0 / 3}, {3.6, 4.0 / 3}};

/// `block` is in units of a level file.
PixelSize SizeOn(const Display& display, PixelSize block) {
  return {int(std::lround(block.width * display.widening * 0.99375 / 15 * display.scale)),
          int(std::lround(block.height * 0.9 / 15 * display.scale))};
}

enum class Side { kLeft, kTop, kRight, kBottom };

/// How thick the two bands of an edge are together, at most of the places along it.
int EdgeOf(const Bitmap& block, Side side) {
  const int width = block.size.width;
  const int height = block.size.height;
  const bool upright = side == Side::kLeft || side == Side::kRight;
  const auto pixel = [&](int along, int in) {
    if (side == Side::kRight) in = width - 1 - in;
    if (side == Side::kBottom) in = height - 1 - in;
    return upright ? block.At(in, along) : block.At(along, in);
  };
  const int length = upright ? height : width;
  std::map<int, int> found;
  for (int along = length / 4; along < length - length / 4; ++along) {
    int in = 0;
    for (int band = 0; band < 2; ++band) {
      const Pixel colour = pixel(along, in);
      while (in < (upright ? width : height) / 2 && pixel(along, in) == colour) ++in;
    }
    ++found[in];
  }
  return std::ranges::max_element(found, {}, [](const auto& entry) { return entry.second; })->first;
}

TEST_F(Pictures, OfBlocksHaveEqualEdgesInEveryShape) {
  for (int type = 1; type <= 22; ++type) {
    if (type == 21) continue;
    const PictureRef picture = store.Named("ImagePedra", type);
    for (const Display& display : kDisplays) {
      for (const int width : {300, 465, 900, 1780}) {
        for (const int height : {225, 250, 330, 600}) {
          const PixelSize size = SizeOn(display, {width, height});
          const Bitmap block = DrawnAt(picture, size);
          const double unit = double(std::min(size.width, size.height)) /
                              std::min(picture->natural.width, picture->natural.height);
          const double drawn = (type == 20 ? 3 : 2.5) * unit;
          for (const Side side : {Side::kLeft, Side::kTop, Side::kRight, Side::kBottom}) {
            ASSERT_NEAR(EdgeOf(block, side), drawn, 0.6)
                << "type " << type << ", " << size.width << " x " << size.height << ", side " << int(side);
          }
        }
      }
    }
  }
}

/// Where stretches of dark pixels begin and how long they are, in one row between the edges.
std::map<int, int> DarkStretches(const Bitmap& block, int y, int darkest_light) {
  std::map<int, int> stretches;
  const int edge = block.size.height / 6;
  int begin = -1;
  for (int x = edge; x < block.size.width - edge; ++x) {
    const bool dark = Light(block.At(x, y)) < darkest_light;
    if (dark && begin < 0) begin = x;
    if (!dark && begin >= 0) stretches[std::exchange(begin, -1)] = x - begin;
  }
  if (!stretches.empty() && stretches.begin()->first == edge) stretches.erase(stretches.begin());
  return stretches;
}

TEST_F(Pictures, OfStripedBlocksKeepTheirStripes) {
  const std::map<int, double> stripes{{16, 7.5}, {19, 3}};  // their width as drawn, on a block 20 high
  for (const auto& [type, drawn] : stripes) {
    const int threshold = type == 16 ? 460 : 400;
    for (const Display& display : {kDisplays[1], kDisplays[2]}) {
      for (const int width : {300, 465, 900, 1780}) {
        const PixelSize size = SizeOn(display, {width, 250});
        const Bitmap block = DrawnAt(store.Named("ImagePedra", type), size);
        const auto middle = DarkStretches(block, size.height / 2, threshold);
        ASSERT_GE(int(middle.size()), std::max(1, size.width / size.height - 1)) << type << ": " << width;
        for (const auto& [begin, length] : middle) {
          EXPECT_NEAR(length, drawn * size.height / 20, 1.6) << type << ": " << width << " at " << begin;
        }
        const int rows = size.height / 6;
        const int slant = type == 16 ? rows : 0;
        const auto above = DarkStretches(block, size.height / 2 - rows, threshold);
        const int begin = middle.rbegin()->first;
        const bool goes_on = std::ranges::any_of(
            above, [&](const auto& stretch) { return std::abs(stretch.first - begin - slant) <= 1; });
        EXPECT_TRUE(goes_on || begin + slant > size.width - size.height / 2) << type << ": " << width;
      }
    }
  }
}

TEST_F(Pictures, OfThePaddleHaveFourEqualCornersAtEveryWidth) {
  constexpr int kFaint = 3 * 0x18;
  for (const double scale : {1.0, 1.28, 1.8, 2.4, 3.6}) {
    const auto length = [&](double twips) { return int(std::lround(twips / 15 * scale)); };
    for (const int width : {687, 981, 1962, 1308, 118 * 15}) {
      const int height = width == 118 * 15 ? 23 * 15 : 283;
      const Bitmap paddle = DrawnAt(store.Named("barra"), {length(width), length(height)});
      const auto [right, bottom] = PixelSize{paddle.size.width - 1, paddle.size.height - 1};
      int lowest = bottom;
      while (lowest > 0 && paddle.At(bottom / 2, lowest) == 0) --lowest;
      for (int y = 0; y <= lowest; ++y) {
        for (int x = 0; x <= right; ++x) {
          ASSERT_LE(Distance(paddle.At(x, y), paddle.At(right - x, y)), 12)
              << x << ", " << y << " of " << width << " at " << scale;
          if (Light(paddle.At(x, y)) > kFaint) {
            ASSERT_NE(paddle.At(x, lowest - y), 0U) << x << ", " << y << " of " << width << " at " << scale;
          }
        }
      }
    }
  }
}

}  // namespace
