// What is drawn holds what the game counts on: sizes that take part in play, black corners, colours that are
// told apart.
#include <gtest/gtest.h>

#include <map>

#include "assets/assets.h"
#include "stage/sdl/artist.h"

namespace {

using namespace stage;

struct Pictures : testing::Test {
  Bitmap Drawn(PictureRef picture, double scale = 1) {
    return artist.Draw(picture->svg,
                       {int(picture->natural.width * scale), int(picture->natural.height * scale)});
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
Pixel Rgb888(int red, int green, int blue) { return Pixel(red) << 16 | Pixel(green) << 8 | Pixel(blue); }

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
  const Pixel stripes[] = {0,
                           0,
                           0,
                           Rgb888(247, 182, 165),
                           Rgb888(231, 97, 57),
                           Rgb888(140, 32, 0),
                           Rgb888(49, 8, 0),
                           Rgb888(181, 182, 181),
                           Rgb888(148, 150, 148),
                           Rgb888(107, 105, 107),
                           Rgb888(57, 56, 57),
                           Rgb888(24, 24, 24),
                           0};
  const Bitmap bar = Drawn(store.Named("statusbar"));
  for (int y = 0; y < 13; ++y) {
    for (const int x : {0, 300, 605}) EXPECT_EQ(bar.At(x, y), stripes[y]) << x << ", " << y;
  }
}

TEST_F(Pictures, OfThePauseSignAreHalfOutside) {
  const Bitmap sign = Drawn(store.Named("pausa"));
  const auto black = std::ranges::count(sign.pixels, 0U);
  EXPECT_NEAR(double(black) / double(sign.pixels.size()), 0.54, 0.03);
  EXPECT_EQ(*std::ranges::max_element(sign.pixels, {}, Light), Rgb888(255, 255, 191));
}

TEST_F(Pictures, OfPlatesAreFlatAndBevelled) {
  for (int code = 1; code <= 8; ++code) {
    EXPECT_LE(Distance(MostCommon(Drawn(store.Named("ImagePower", code))), Rgb888(80, 103, 144)), 3) << code;
    const Bitmap parked = Drawn(store.Named("ImageBonusParado", code));
    EXPECT_LE(Distance(MostCommon(parked), Rgb888(239, 166, 24)), 3) << code;
    EXPECT_LT(Light(parked.At(0, 20)), Light(Rgb888(239, 166, 24)) / 2) << code;
  }
}

TEST_F(Pictures, OfBlocksShowTheirFaceAndAreToldApart) {
  const std::map<int, Pixel> faces{
      {1, Rgb888(82, 130, 247)},   {2, Rgb888(255, 105, 49)},   {3, Rgb888(115, 178, 90)},
      {4, Rgb888(247, 186, 57)},   {5, Rgb888(140, 138, 140)},  {6, Rgb888(213, 189, 123)},
      {7, Rgb888(82, 115, 32)},    {8, Rgb888(213, 115, 41)},   {9, Rgb888(222, 213, 148)},
      {10, Rgb888(180, 211, 117)}, {11, Rgb888(147, 107, 81)},  {12, Rgb888(197, 222, 156)},
      {13, Rgb888(180, 156, 98)},  {14, Rgb888(131, 180, 148)}, {15, Rgb888(196, 123, 72)},
      {16, Rgb888(255, 180, 148)}, {17, Rgb888(230, 131, 106)}, {18, Rgb888(189, 82, 148)},
      {19, Rgb888(112, 191, 176)}, {20, Rgb888(255, 255, 0)},   {22, Rgb888(190, 200, 125)}};
  std::map<int, Bitmap> blocks;
  for (const auto& [type, face] : faces) {
    const Bitmap block = Drawn(store.Named("ImagePedra", type));
    const auto [w, h] = block.size;
    EXPECT_LE(Distance(MostCommon(block), face), 12) << type;
    if (type != 20) {
      EXPECT_GT(MeanLight(block, 2, 0, w - 2, 2), MeanLight(block, 4, 5, w - 4, h - 5)) << type;
      EXPECT_LT(MeanLight(block, 2, h - 2, w - 2, h), MeanLight(block, 4, 5, w - 4, h - 5)) << type;
      EXPECT_LT(MeanLight(block, w - 2, 2, w, h - 2), MeanLight(block, 4, 5, w - 4, h - 5)) << type;
    }
    blocks.emplace(type, artist.Draw(store.Named("ImagePedra", type)->svg, {31, 15}));
  }
  for (const auto& [a, one] : blocks) {
    for (const auto& [b, other] : blocks) {
      if (a >= b) continue;
      double unlike = 0;
      for (std::size_t i = 0; i < one.pixels.size(); ++i)
        unlike += Distance(one.pixels[i], other.pixels[i]) > 24;
      EXPECT_GT(unlike / double(one.pixels.size()), 0.2) << a << " and " << b;
    }
  }
}

}  // namespace
