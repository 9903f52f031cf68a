// What the lights of effects are like at single moments: where they lie, in which colour, and how bright.
#include "stage/painting/looks.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <set>

#include "tests/stage/bench.h"

namespace {

using namespace tests;
using std::chrono::milliseconds;

constexpr Pixel kInside = 0x305070;
constexpr Asset kFlat{"flat",
                      R"(<svg xmlns="http://www.w3.org/2000/svg" width="30" height="20" viewBox="0 0 32 16">
<rect width="32" height="16" fill="#ff0000"/><rect x="6" y="3" width="20" height="10" fill="#305070"/></svg>)"};

class Looks : public testing::TestWithParam<Double> {
 protected:
  Scene At(const Effect& effect, Moment age) {
    return effect.look(age, {view, bench.theatre.Painting().Made(), milliseconds(17)});
  }
  template <class Mark>
  Mark Only(const Effect& effect, Moment age) {
    const Scene scene = At(effect, age);
    EXPECT_EQ(scene.marks.size(), 1U);
    return std::get<Mark>(scene.marks.at(0));
  }
  PixelRect PlaceOf(const Image& image) const { return view.ToPixels(image.Area()); }
  int Length(Double design_pixels) const { return view.Length(design_pixels * kTwipsPerPixel); }

  Bench bench{{.scale = GetParam()}};
  Viewport view = bench.theatre.Painting().View();
  std::shared_ptr<NotingForm> form = std::make_shared<NotingForm>(bench.theatre);
  PictureStore pictures{{&kFlat, 1}};
  Image block{*form, {3000, 3000, 480, 240}, pictures.Named("flat"), true};
};
INSTANTIATE_TEST_SUITE_P(Scales, Looks, testing::Values(1.0, 1.8, 3.6));

/// How much of white has been mixed into each colour of a pixel.
std::array<Double, 3> White(Pixel colour, Pixel under) {
  const auto part = [&](int shift) {
    const int from = int(under >> shift & 255U);
    return (int(colour >> shift & 255U) - from) / Double(255 - from);
  };
  return {part(16), part(8), part(0)};
}

TEST_P(Looks, ABurstIsTheBlockInItsOwnColourAndFourSparksToAllSides) {
  const Effect burst = look::Burst(block, {2000, 3600});
  const PixelPlace start = view.ToPlace({3000, 3240});
  Double far_before = 0;
  Pixel part_before = kWhole;
  Pixel spark_before = kWhole;
  for (const int age : {0, 40, 80, 120, 140}) {
    const Scene scene = At(burst, milliseconds(age));
    ASSERT_EQ(scene.marks.size(), 5U) << age;
    const Pixel spark_part = std::get<Light>(scene.marks[1]).part;
    EXPECT_TRUE(age == 0 ? spark_part == kWhole : spark_part < spark_before) << spark_part;
    spark_before = spark_part;
    const auto face = std::get<Light>(scene.marks[0]);
    EXPECT_EQ(face.place, PlaceOf(block));
    EXPECT_LT(face.part, part_before);
    part_before = face.part;
    const auto white = White(face.colour, kInside);
    for (const Double part : white) EXPECT_NEAR(part, age == 0 ? 0.7 : 0.125, 0.01);
    Double far = 0;
    std::set<std::pair<bool, bool>> sides;
    for (std::size_t i = 1; i < scene.marks.size(); ++i) {
      const auto spark = std::get<Light>(scene.marks[i]);
      EXPECT_EQ(spark.place.Width(), Length(2.5));
      EXPECT_EQ(spark.place.Height(), Length(2.5));
      const Double x = (spark.place.left + spark.place.right) / 2.0 - start.x;
      const Double y = (spark.place.top + spark.place.bottom) / 2.0 - start.y;
      sides.emplace(x > 0, y > 0);
      EXPECT_LE(std::hypot(x, y), age == 0 ? 1 : Length(24));
      EXPECT_GE(std::min(std::abs(x), std::abs(y)), age > 100 ? Length(7) : 0);
      far = std::max(far, std::hypot(x, y));
    }
    if (age > 0) {
      EXPECT_EQ(sides.size(), 4U);
      EXPECT_GE(far, far_before);
    }
    far_before = far;
  }
  EXPECT_TRUE(At(burst, milliseconds(150)).marks.empty());
}

TEST_P(Looks, AGlintRunsOverAllOfTheRimAndNothingElse) {
  const Effect glint = look::Glint(block);
  const PixelRect outer = PlaceOf(block);
  const int line = Length(2.5);
  const auto band = [&](Moment age) { return std::get<Light>(At(glint, age).marks.at(0)).band.value(); };
  std::map<std::pair<int, int>, int> lit;
  for (const auto& mark : At(glint, milliseconds(50)).marks) {
    const auto light = std::get<Light>(mark);
    for (int y = light.place.top; y < light.place.bottom; ++y) {
      for (int x = light.place.left; x < light.place.right; ++x) ++lit[{x, y}];
    }
  }
  for (int y = outer.top - 1; y <= outer.bottom; ++y) {
    for (int x = outer.left - 1; x <= outer.right; ++x) {
      const int in = std::min({x - outer.left, outer.right - 1 - x, y - outer.top, outer.bottom - 1 - y});
      ASSERT_EQ(lit[std::pair(x, y)], in >= 0 && in < line ? 1 : 0) << x << ' ' << y;
    }
  }
  EXPECT_LE(band(Moment{}).middle + band(Moment{}).half, outer.left + outer.top);
  const Light::Band last = band(milliseconds(100));
  EXPECT_GE(last.middle - last.half, outer.right + outer.bottom);
}

TEST_P(Looks, APlateThatCollapsesGetsFlatAndNarrowInThePaddlesMiddle) {
  struct Case {
    Double paddle;  // its left edge
    Double goal;    // where the plate's middle goes
  };
  for (const Case& each : {Case{3100, 3240}, {2000, 2900}, {3300, 3300}}) {
    const Image paddle(*form, {each.paddle, 3600, 900, 300}, nullptr, true);
    const Effect collapse = look::Collapse(block, paddle);
    const auto begin = Only<Ghost>(collapse, Moment{});
    EXPECT_EQ(begin.place, PlaceOf(block));
    EXPECT_EQ(begin.within, begin.place);
    const auto half = Only<Ghost>(collapse, milliseconds(85));  // half of the way, as it goes ever faster
    const PixelPlace middle = view.ToPlace({(each.goal + 3240) / 2, (3240 + 3750) / 2.0});
    EXPECT_NEAR((half.place.left + half.place.right) / 2.0, middle.x, 1);
    EXPECT_NEAR(half.place.bottom, middle.y, 1);
    EXPECT_NEAR(half.place.Width(), Length(32 * 0.8), 1);
    EXPECT_NEAR(half.place.Height(), Length(8), 1);
    const auto end = Only<Ghost>(collapse, milliseconds(120));
    EXPECT_EQ(end.place.Width(), Length(32 * 0.6));
    EXPECT_EQ(end.place.Height(), 0);
  }
}

TEST_P(Looks, AGhostFadesWhileItMovesAway) {
  const Effect ghostly = look::Ghostly(block, milliseconds(300), {600, -900});
  const PixelRect place = PlaceOf(block);
  Pixel part_before = kWhole;
  for (int age = 0; age <= 300; age += 50) {
    const auto ghost = Only<Ghost>(ghostly, milliseconds(age));
    EXPECT_LT(ghost.part, part_before);
    part_before = ghost.part;
    const Double gone = 1 - std::pow(1 - age / 300.0, 2);
    EXPECT_NEAR(ghost.place.left, place.left + 40 * gone * GetParam(), 1);
    EXPECT_NEAR(ghost.place.top, place.top - 60 * gone * GetParam(), 1);
    EXPECT_EQ(ghost.place, ghost.within);
    EXPECT_EQ(ghost.drawn, (PixelSize{place.Width(), place.Height()}));
  }
  EXPECT_EQ(part_before, 0U);
  Image loose(*form, {6000, 3000, 0, 0}, block.Picture, false);
  loose.Width = loose.Height = 900;
  const PixelSize natural{Length(30), Length(20)};
  EXPECT_EQ(Only<Ghost>(look::Ghostly(loose, milliseconds(300)), Moment{}).drawn, natural);
}

TEST_P(Looks, NoLightHidesAllOfWhatItFallsOn) {
  for (const Effect& effect :
       {look::Glint(block), look::Shimmer(block), look::Flash(block, 0xFFFFFF, milliseconds(99)),
        look::Line({0, 0, 900, 30}, 0xFFFFFF)}) {
    for (const auto& mark : At(effect, Moment{}).marks) {
      EXPECT_GT(std::get<Light>(mark).part, kWhole / 2);
      EXPECT_LT(std::get<Light>(mark).part, kWhole);
    }
  }
}

TEST_P(Looks, ChevronsRiseOneAfterTheOtherAboveTheMiddleOfTheBall) {
  const Image ball(*form, {6000, 6000, 225, 225}, pictures.Named("flat"), true);
  const Effect chevrons = look::Chevrons(ball, milliseconds(300));
  const PixelRect place = PlaceOf(ball);
  std::set<int> heights;
  int seen = 0;
  std::vector<std::variant<Light, Ghost>> before;
  std::size_t most = 0;
  EXPECT_TRUE(At(chevrons, milliseconds(299)).marks.empty());
  EXPECT_GT(Only<Ghost>(chevrons, milliseconds(400)).place.top, place.top - Length(20))
      << "the lowest comes first";
  for (int age = 310; age < 1300; age += 10) {
    const Scene scene = At(chevrons, milliseconds(age));
    most = std::max(most, scene.marks.size());
    seen += scene.marks == before ? 0 : 1;
    before = scene.marks;
    int above = place.top;
    for (const auto& mark : scene.marks) {
      const auto chevron = std::get<Ghost>(mark);
      EXPECT_NEAR(chevron.place.left + chevron.place.right, place.left + place.right, 1);
      EXPECT_EQ(chevron.place.Width(), Length(18));
      EXPECT_EQ(chevron.place.Height(), Length(9));
      EXPECT_LT(chevron.place.top, above);
      EXPECT_GT(chevron.part, 0U);
      above = chevron.place.top;
      heights.insert(above);
      const auto drawn = bench.theatre.Painting().Made().Of(*chevron.picture, chevron.drawn);
      const auto stroke = [&](Double x, Double y) {
        return (drawn->At(int(x * GetParam()), int(y * GetParam())) & 255U) > 100;
      };
      EXPECT_TRUE(stroke(5.5, 4.5) && stroke(9, 2) && stroke(12.5, 4.5) && !stroke(9, 7));
    }
  }
  EXPECT_EQ(most, 3U);
  EXPECT_GT(heights.size(), 20U);
  EXPECT_LE(seen, 30) << "in a second";
}

}  // namespace
