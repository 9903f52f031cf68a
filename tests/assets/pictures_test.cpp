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
    blocks.emplace(type, artist.Draw(store.Named("ImagePedra", type)->svg, {31, 15}));
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

}  // namespace
