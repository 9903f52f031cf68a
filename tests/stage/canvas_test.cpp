// Light and ghosts on a canvas, pixel by pixel.
#include "stage/painting/canvas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>

#include "tests/stage/bench.h"

namespace {

using namespace tests;

constexpr int kSide = 40;

class OnCanvas : public testing::Test {
 protected:
  OnCanvas() {
    for (int i = 0; i < kSide * kSide; ++i) pixels[std::size_t(i)] = Pixel(i) * 2654435761U & 0xFFFFFF;
  }
  /// What each pixel was before is handed to `expected` with its place.
  template <class Expected>
  void ExpectPainted(const std::function<void(const Canvas&)>& paint, const Expected& expected) {
    const std::vector<Pixel> before = pixels;
    const PixelRect clip{3, 2, 37, 35};
    paint(Canvas({{kSide, kSide}, pixels.data(), kSide}, view, drawings, clip));
    for (int y = 0; y < kSide; ++y) {
      for (int x = 0; x < kSide; ++x) {
        const auto i = std::size_t(y) * kSide + std::size_t(x);
        const bool open = PixelRect{x, y, x + 1, y + 1}.Cut(clip) == PixelRect{x, y, x + 1, y + 1};
        ASSERT_EQ(pixels[i], open ? expected(x, y, before[i]) : before[i]) << x << ' ' << y;
      }
    }
  }
  static Pixel Each(Pixel a, Pixel b, const std::function<unsigned(unsigned, unsigned)>& mix) {
    Pixel mixed = 0;
    for (const int shift : {16, 8, 0}) mixed |= mix(a >> shift & 255U, b >> shift & 255U) << shift;
    return mixed;
  }

  sdl::Artist artist;
  Drawings drawings{artist, korvane::Assets()};
  Viewport view{{12000, 9000}, {800, 600}};
  std::vector<Pixel> pixels = std::vector<Pixel>(std::size_t(kSide * kSide));
};

TEST_F(OnCanvas, ABandOfLightFallsOffToBothSidesOfItsLine) {
  const Light light{{1, 1, 39, 30}, 0xC08040, 200, Light::Band{41, 12}};
  ExpectPainted([&](const Canvas& canvas) { canvas.Paint(light); },
                [&](int x, int y, Pixel before) {
                  const int left = 12 - std::abs(x + y - 41);
                  if (y >= 30 || left <= 0) return before;
                  return Each(before, 0xC08040, [&](unsigned under, unsigned over) {
                    const unsigned part = 200U * unsigned(left) / 12U;
                    return (under * (256U - part) + over * part) / 256U;
                  });
                });
}

TEST_F(OnCanvas, AGhostMakesNothingDarker) {
  const Picture picture{"two",
                        R"(<svg xmlns="http://www.w3.org/2000/svg" width="20" height="20" viewBox="0 0 20 20">
<rect width="10" height="20" fill="#a06020"/></svg>)",
                        {20, 20}};
  struct Case {
    Pixel part = kWhole;
    std::optional<Pixel> colour;
  };
  for (const Case& each : {Case{kWhole, {}}, {90, {}}, {90, 0x10F0E0}}) {
    for (const int width : {20, 30}) {
      const Ghost ghost{{5, 5, 5 + width, 25}, {9, 5, 35, 20}, &picture, {20, 20}, each.part, each.colour};
      ExpectPainted([&](const Canvas& canvas) { canvas.Paint(ghost); },
                    [&](int x, int y, Pixel before) {
                      if (x < 9 || x >= 5 + width / 2 || y < 5 || y >= 20) return before;
                      return Each(before, each.colour.value_or(0xA06020), [&](unsigned under, unsigned over) {
                        const unsigned mixed = (under * (256U - each.part) + over * each.part) / 256U;
                        return each.colour ? mixed : std::max(under, mixed);
                      });
                    });
    }
  }
  ExpectPainted(
      [](const Canvas& canvas) {
        canvas.Paint(Ghost{.place = {5, 5, 25, 25}, .within = {5, 5, 25, 25}, .drawn = {20, 20}});
      },
      [](int, int, Pixel before) { return before; });
}

TEST_F(OnCanvas, APictureBetweenPixelsGivesEachWhatLiesOnIt) {
  const Picture picture{"four",
                        R"(<svg viewBox="0 0 2 2"><rect width="1" height="1" fill="#f00020"/>
<rect x="1" width="1" height="1" fill="#00e040"/><rect y="1" width="1" height="1" fill="#2040c0"/>
<rect x="1" y="1" width="1" height="1" fill="#a08000"/></svg>)",
                        {2, 2}};
  const auto drawn = drawings.Of(picture, {2, 2});
  const PixelPlace corner{10.25, 12.625};
  const auto shared = [](int pixel, Double from) { return std::clamp(1 - std::abs(pixel - from), 0.0, 1.0); };
  const std::vector<Pixel> before = pixels;
  Canvas({{kSide, kSide}, pixels.data(), kSide}, view, drawings, {0, 0, kSide, kSide})
      .DrawBetween({corner.x * kTwipsPerPixel, corner.y * kTwipsPerPixel}, picture, {2, 2});
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) {
      const auto i = std::size_t(y) * kSide + std::size_t(x);
      for (const int shift : {16, 8, 0}) {
        const auto part = [&](Pixel pixel) { return Double(pixel >> shift & 255U); };
        Double expected = 0;
        Double covered = 0;
        for (int row = 0; row < 2; ++row) {
          for (int column = 0; column < 2; ++column) {
            const Double share = shared(x, corner.x + column) * shared(y, corner.y + row);
            expected += share * part(drawn->At(column, row));
            covered += share;
          }
        }
        ASSERT_NEAR(part(pixels[i]), expected + (1 - covered) * part(before[i]), 3) << x << ' ' << y;
      }
    }
  }
}

TEST_F(OnCanvas, APictureThatFadesDarkensWhereItIsBlack) {
  const Picture picture{
      "two", R"(<svg viewBox="0 0 20 20"><rect width="10" height="20" fill="#a06020"/></svg>)", {20, 20}};
  ExpectPainted(
      [&](const Canvas& canvas) {
        canvas.Draw({75, 75, 300, 300}, picture, {20, 20}, 100);
      },
      [&](int x, int y, Pixel before) {
        if (x < 5 || x >= 25 || y < 5 || y >= 25) return before;
        return Each(before, x < 15 ? 0xA06020 : 0,
                    [](unsigned under, unsigned over) { return (under * 156U + over * 100U) / 256U; });
      });
}

TEST_F(OnCanvas, APictureTooLargeToBeDrawnIsNotSeenBetweenPixels) {
  const Picture picture{
      "any", R"(<svg viewBox="0 0 1 1"><rect width="1" height="1" fill="#fff"/></svg>)", {1, 1}};
  ExpectPainted(
      [&](const Canvas& canvas) {
        canvas.DrawBetween({7, 7}, picture, {3000, 3});
      },
      [](int, int, Pixel before) { return before; });
}

TEST_F(OnCanvas, DrawingsAreKeptUntilThereAreTooMany) {
  const Picture picture{"any", R"(<svg xmlns="http://www.w3.org/2000/svg" width="8" height="8"/>)", {8, 8}};
  EXPECT_EQ(drawings.Of(picture, {0, -5})->size, (PixelSize{1, 1}));
  EXPECT_EQ(drawings.Of(picture, {9000, 3})->size, (PixelSize{2048, 3}));
  const std::weak_ptr<const Bitmap> first = drawings.Of(picture, {100, 100});
  EXPECT_EQ(first.lock(), drawings.Of(picture, {100, 100}));
  for (const int height : {1400, 1500}) drawings.Of(picture, {2048, height});
  EXPECT_FALSE(first.expired());
  const std::weak_ptr<const Bitmap> last = drawings.Of(picture, {2048, 1600});
  EXPECT_TRUE(first.expired());
  drawings.Of(picture, {9, 9});
  EXPECT_FALSE(last.expired());

  const std::weak_ptr<const Coverage> words = drawings.Of(Font{}, 1, "first");
  for (int i = 0; i < 100; ++i) drawings.Of(Font{}, 1, std::to_string(i));
  EXPECT_EQ(words.lock(), drawings.Of(Font{}, 1, "first"));
  for (int i = 0; i < 200; ++i) drawings.Of(Font{}, 1, std::to_string(i));
  EXPECT_TRUE(words.expired());
}

TEST(Regions, CoverWhatIsAddedByRectanglesThatLieApart) {
  std::mt19937 draws(3);
  for (int round = 0; round < 200; ++round) {
    Region region;
    std::vector<PixelRect> added;
    for (int i = 0; i < 40; ++i) {
      const int left = int(draws() % 60);
      const int top = int(draws() % 60);
      added.push_back({left, top, left + int(draws() % 9), top + int(draws() % 9)});
      region.Add(added.back());
      for (const PixelRect& one : region.Rects()) {
        EXPECT_FALSE(one.Empty());
        for (const PixelRect& other : region.Rects()) {
          ASSERT_TRUE(&one == &other || one.Cut(other).Empty());
        }
      }
    }
    for (const PixelRect& rect : added) {
      EXPECT_TRUE(rect.Empty() || std::ranges::any_of(region.Rects(), [&](const PixelRect& one) {
                    return one.Covers(rect);
                  }));
    }
  }
}

}  // namespace
