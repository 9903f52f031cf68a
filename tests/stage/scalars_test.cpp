#include "stage/scalars.h"

#include <gtest/gtest.h>

#include "stage/files/utf8.h"
#include "stage/painting/geometry.h"
#include "stage/time/random.h"

namespace {

using namespace stage;

TEST(Scalars, ConversionsGoToTheNearestEvenNumber) {
  const std::pair<Double, int> cases[] = {{0.5, 0},  {1.5, 2},         {-0.5, 0},
                                          {2.5, 2},  {3.5, 4},         {-1.5, -2},
                                          {2.51, 3}, {32767.4, 32767}, {-32768.5, -32768}};
  for (const auto& [value, whole] : cases) {
    EXPECT_EQ(CInt(value), whole) << value;
    EXPECT_EQ(CLng(value), whole) << value;
  }
  for (const Double value : {32767.5, -32768.6, 1e300, std::numeric_limits<Double>::quiet_NaN()}) {
    EXPECT_THROW(CInt(value), RuntimeError) << value;
  }
  EXPECT_EQ(CLng(2147483647.4), 2147483647);
  EXPECT_THROW(CLng(2147483647.5), RuntimeError);
  EXPECT_EQ(Int(-0.5), -1);
  EXPECT_EQ(Int(2.99), 2);
}

TEST(Scalars, IntegersOverflowWhereTheyAreStored) {
  Integer number = 32767;
  EXPECT_THROW(number = number + 1, RuntimeError);
  EXPECT_EQ(number, 32767);
  EXPECT_THROW(number = Integer(number * 2), RuntimeError);
  Long large = 2147483647;
  EXPECT_THROW(large = large + 5, RuntimeError);
  EXPECT_EQ(-Integer(-32767), 32767);
  EXPECT_THROW(-Integer(-32768), RuntimeError);
  EXPECT_EQ(Flag(true).AsInteger(), -1);
}

TEST(Scalars, ValReadsTheNumberAtTheStart) {
  const std::pair<const char*, Double> cases[] = {
      {"", 0},        {"  42", 42}, {"300 fast", 300}, {"-7.5x", -7.5}, {".5", 0.5}, {"x1", 0},
      {"1.2.3", 1.2}, {"- 3", -3},  {"+4", 4},         {"-", 0},        {"1,5", 1},  {"1e3", 1},
      {"++4", 0},     {"+-4", 0},   {"--4", 0},        {"+ .5", 0.5},   {"4-", 4}};
  for (const auto& [text, value] : cases) EXPECT_EQ(Val(text), value) << text;
  EXPECT_THROW(CInt(Val(std::string(400, '9'))), RuntimeError);
}

TEST(Scalars, AFailingStatementIsSkippedWhole) {
  Integer kept = 5;
  Integer next = 0;
  ResumeNext([&] { kept = Integer(40000); }, [&] { next = 7; });
  EXPECT_EQ(kept, 5);
  EXPECT_EQ(next, 7);
}

TEST(Scalars, ScreensFollowTheDisplayBetweenTheirLimits) {
  struct Case {
    PixelSize display;
    Single width = 0;
    Double scale = 0;
    PixelRect area;
  };
  const Case cases[] = {{{800, 600}, 12000, 1, {0, 0, 800, 600}},
                        {{1920, 1080}, 16000, 1.8, {0, 0, 1920, 1080}},
                        {{3840, 2160}, 16000, 3.6, {0, 0, 3840, 2160}},
                        {{1000, 1000}, 11250, 1000 / 750.0, {0, 100, 1000, 900}},
                        {{5000, 1000}, 32000, 1000 / 600.0, {722, 0, 4278, 1000}}};
  for (const Case& each : cases) {
    const ScreenSize screen = ScreenFor(each.display);
    EXPECT_EQ(screen.Width, each.width);
    EXPECT_EQ(screen.Height, 9000);
    const Viewport view(screen, each.display);
    EXPECT_NEAR(view.Scale(), each.scale, 1e-9);
    EXPECT_EQ(view.Area(), each.area) << each.display.width;
    const PixelPlace middle{each.display.width / 2.0, each.display.height / 2.0};
    EXPECT_NEAR(view.ToTwips(middle).x, screen.Width / 2.0, 1e-6);
    EXPECT_NEAR(view.ToTwips(middle).y, 4500, 1e-6);
  }
}

TEST(Scalars, PicturesKeepTheirPixelSizeWhileTheyMove) {
  const Viewport view({16000, 9000}, {1920, 1080});
  for (int step = 0; step < 60; ++step) {
    const Double left = step * 0.7;
    const PixelRect place = view.ToPixels({left, left, 225, 225});
    EXPECT_EQ(place.Width(), 27);
    EXPECT_EQ(place.Height(), 27);
  }
}

TEST(Scalars, DrawsCanBePreparedAndFixed) {
  Random a;
  Random b;
  a.Randomize(43200.5F);
  b.Randomize(43200.5F);
  const Single first = a.Rnd();
  EXPECT_EQ(first, b.Rnd());
  a.Randomize(43200.5F);
  EXPECT_NE(a.Rnd(), first) << "two draws of one moment";
  a.Fix(7);
  b.Fix(7);
  b.Randomize(1);
  EXPECT_EQ(a.Rnd(), b.Rnd());
  a.Prepared() = {0.25F, 0.75F};
  EXPECT_EQ(a.Rnd(), 0.25F);
  EXPECT_EQ(a.Rnd(), 0.75F);
  EXPECT_EQ(a.Rnd(), b.Rnd());
}

TEST(Scalars, DrawsSpreadEvenlyBelowOne) {
  constexpr int kParts = 400;
  constexpr int kDraws = 1000 * kParts;
  Random random;
  random.Fix(20250713);
  std::array<int, kParts> counts{};
  for (int i = 0; i < kDraws; ++i) ++counts.at(std::size_t(random.Rnd() * kParts));
  // Chi square of 399 degrees passes 489 once in a thousand times.
  Double chi_square = 0;
  for (const int count : counts) chi_square += Double((count - 1000) * (count - 1000)) / 1000;
  EXPECT_LT(chi_square, 489);
}

TEST(Scalars, TextIsCountedInCharacters) {
  EXPECT_EQ(Characters("Você é").size(), 6U);
  EXPECT_EQ(Utf8(Characters("aé€😀")), "aé€😀");
  // The first and the last of each length, and beside what stands for no character.
  const std::u32string edges{0x7F, 0x80, 0x7FF, 0x800, 0xD7FF, 0xE000, 0xFFFF, 0x10000, 0x10FFFF};
  EXPECT_EQ(Utf8(edges).size(), 1U + 2 + 2 + 3 + 3 + 3 + 3 + 4 + 4);
  EXPECT_EQ(Characters(Utf8(edges)), edges);
  const std::pair<const char*, const char*> broken[] = {{"a\xFFz", "az"},     {"\xC3", ""},
                                                        {"\xC0\x80z", "z"},   {"\xED\xA0\x80", ""},
                                                        {"\xED\xBF\xBF", ""}, {"\xF5\x80\x80\x80", ""},
                                                        {"\xC3\xC3\xA9", "é"}};
  for (const auto& [bytes, kept] : broken) EXPECT_EQ(Utf8(Characters(bytes)), kept);
}

}  // namespace
