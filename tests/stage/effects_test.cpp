// Effects are seen for as long as they last, over the controls, and leave nothing behind.
#include "stage/painting/effects.h"

#include <gtest/gtest.h>

#include "stage/painting/looks.h"
#include "tests/stage/bench.h"

namespace {

using namespace tests;
using std::chrono::milliseconds;

constexpr int kRefreshRate = 60;

/// Two images on a form; what happens, happens to the first.
class Stand {
 public:
  explicit Stand(ScriptedSetup setup = {.refresh_rate = kRefreshRate}) : bench(std::move(setup)) {
    bench.platform.Look(true);
    bench.theatre.Show(form, kModeless);
    quiet = bench.Pixels();
  }
  void PassRefresh() {
    bench.platform.PassTo(Moment((1000000 + kRefreshRate - 1) / kRefreshRate));
    bench.theatre.DoEvents();
  }
  EffectSet& Effects() { return bench.theatre.Effects(); }
  bool Seen() { return bench.Pixels() != quiet; }
  void Begin() { Effects().Begin(*block, look::Flash(*block, 0xFF8000, milliseconds(200))); }

  Bench bench;
  std::shared_ptr<NotingForm> form = std::make_shared<NotingForm>(bench.theatre);
  std::optional<Image> block{std::in_place, *form, Design{3000, 3000, 480, 240},
                             bench.theatre.Pictures.Named("ImagePedra1"), true};
  Image paddle{*form, {3100, 3150, 1000, 270}, bench.theatre.Pictures.Named("barra"), true};
  std::vector<Pixel> quiet;
};

using Maker = Effect (*)(Stand&);
struct Look {
  const char* name;
  Maker make;
  int longest;        // ms
  bool seen_at_once;  // on this stand; else from the next refresh on, or a little later
};
constexpr TwipPoint kBelow{3240, 3300};
const Look kLooks[] = {
    {"burst", [](Stand& s) { return look::Burst(*s.block, kBelow); }, 164, true},
    {"glint", [](Stand& s) { return look::Glint(*s.block); }, 100, false},
    {"shimmer", [](Stand& s) { return look::Shimmer(*s.block); }, 150, false},
    {"flash", [](Stand& s) { return look::Flash(*s.block, 0xFF8000, milliseconds(250)); }, 250, true},
    {"glow", [](Stand& s) { return look::Glow(s.paddle, 0xFF0000, milliseconds(250)); }, 250, false},
    {"ghost",
     [](Stand& s) {
       return look::Ghostly(s.paddle, milliseconds(300), {500, 700});
     },
     300, false},
    {"collapse", [](Stand& s) { return look::Collapse(*s.block, s.paddle); }, 120, true},
    {"line",
     [](Stand&) {
       return look::Line({2000, 2000, 900, 30}, 0xC8D8F0);
     },
     100, false},
    {"appear", [](Stand&) { return look::Appear(milliseconds(100), milliseconds(80)); }, 180, true}};

TEST(Effects, AreSeenAsLongAsTheyLastAndLeaveNothingBehind) {
  for (const Double scale : {1.0, 1.8, 0.77}) {
    for (const Look& look : kLooks) {
      Stand stand({.scale = scale, .refresh_rate = kRefreshRate});
      stand.Effects().Begin(*stand.block, look.make(stand));
      const Moment begin = stand.bench.platform.Now();
      Moment last{};
      for (int refresh = 0; refresh < 30; ++refresh) {
        const std::vector<Pixel> grown = stand.bench.Pixels();
        if (grown != stand.quiet) last = stand.bench.platform.Now() - begin;
        stand.bench.theatre.Repaint();
        ASSERT_EQ(grown, stand.bench.Pixels())
            << look.name << " at scale " << scale << ", refresh " << refresh;
        stand.PassRefresh();
      }
      EXPECT_GT(last, milliseconds(look.longest) * 2 / 3) << look.name;
      EXPECT_LE(last, milliseconds(look.longest)) << look.name;
      EXPECT_EQ(stand.bench.Pixels(), stand.quiet) << look.name;
      EXPECT_EQ(stand.Effects().NextBeat(), Moment::max()) << look.name;
    }
  }
}

TEST(Effects, ThatTakeThePlaceOfWhatIsGoneDoNotWaitForARefresh) {
  for (const Look& look : kLooks) {
    Stand stand;
    stand.bench.platform.Pass(milliseconds(5));
    stand.Effects().Begin(*stand.block, look.make(stand));
    EXPECT_EQ(stand.Seen(), look.seen_at_once) << look.name;
    const Moment now = stand.bench.platform.Now();
    EXPECT_GT(stand.Effects().NextBeat(), now) << look.name;
    EXPECT_LE(stand.Effects().NextBeat(), now + kBeat) << look.name;
  }
}

TEST(Effects, OfOneMomentPaintNothingButTheirOwnPixels) {
  Stand stand;
  stand.Effects().Begin(*stand.block, look::Line({2000, 2000, 900, 30}, 0xC8D8F0));
  stand.bench.platform.TakePresented();
  for (int refresh = 0; refresh < 10; ++refresh) {
    (void)stand.bench.Pixels();
    for (const PixelRect& rect : stand.bench.platform.TakePresented()) {
      EXPECT_EQ(rect, (PixelRect{133, 133, 193, 135})) << refresh;
    }
    stand.PassRefresh();
  }
}

TEST(Effects, EndWithWhatTheyAreOn) {
  const std::pair<const char*, void (*)(Stand&)> ends[] = {
      {"all end", [](Stand& s) { s.Effects().Clear(); }},
      {"another form",
       [](Stand& s) { s.bench.theatre.Show(std::make_shared<NotingForm>(s.bench.theatre), kModeless); }},
      {"form unloaded", [](Stand& s) { s.form->Unload(); }},
      {"image gone", [](Stand& s) { s.block.reset(); }}};
  for (const auto& [name, end] : ends) {
    Stand stand;
    stand.Begin();
    EXPECT_TRUE(stand.Seen()) << name;
    end(stand);
    Stand plain;
    end(plain);
    EXPECT_EQ(stand.bench.Pixels(), plain.bench.Pixels()) << name;
    EXPECT_EQ(stand.Effects().NextBeat(), Moment::max()) << name;
  }
}

TEST(Effects, AreNoneWhereNobodySeesOrWantsThem) {
  for (const ScriptedSetup& setup :
       {ScriptedSetup{.refresh_rate = 0}, ScriptedSetup{.refresh_rate = 60, .stillness = true}}) {
    Stand stand(setup);
    stand.Begin();
    EXPECT_FALSE(stand.Seen());
    EXPECT_EQ(stand.Effects().NextBeat(), Moment::max());
  }
  Stand covered;
  covered.bench.theatre.Show(std::make_shared<NotingForm>(covered.bench.theatre), kModeless);
  const std::vector<Pixel> before = covered.bench.Pixels();
  covered.Begin();
  EXPECT_EQ(covered.bench.Pixels(), before);
}

TEST(Effects, ThatAreKeptAreSeenWhileTheirConditionHolds) {
  Stand stand;
  bool holds = false;
  stand.Effects().Keep(
      *stand.block, [&] { return holds; }, look::Dim(kWhole / 2));
  stand.Effects().Keep(
      *stand.block, [&] { return holds; }, look::Chevrons(*stand.block, milliseconds(500)));
  EXPECT_FALSE(stand.Seen());
  for (int round = 0; round < 2; ++round) {
    holds = true;
    EXPECT_TRUE(stand.Seen());
    const std::vector<Pixel> dimmed = stand.bench.Pixels();
    stand.bench.platform.Pass(milliseconds(490));
    EXPECT_EQ(stand.bench.Pixels(), dimmed);
    stand.bench.platform.Pass(milliseconds(200));
    EXPECT_NE(stand.bench.Pixels(), dimmed);
    {
      const auto modal = std::make_shared<NotingForm>(stand.bench.theatre);
      stand.bench.theatre.Show(modal, kModeless);
      stand.bench.theatre.PaintNow();
      modal->Unload();
    }
    EXPECT_EQ(stand.bench.Pixels(), dimmed);  // and the chevrons wait anew
    // cppcheck-suppress redundantAssignment
    holds = false;  // which the effects look at
    EXPECT_FALSE(stand.Seen());
  }
}

TEST(Effects, ThatStayAsTheyAreAreNotPaintedAnew) {
  Stand stand;
  const Light light{{10, 10, 30, 20}, 0xFFFFFF, kWhole, {}};
  stand.Effects().Keep(*stand.block, [] { return true; }, {Moment::max(), [light](auto&&...) {
                                                             return Scene{kWhole, {light}};
                                                           }});
  EXPECT_TRUE(stand.Seen());
  stand.bench.platform.TakePresented();
  stand.paddle.Visible = false;
  stand.bench.theatre.PaintNow();
  for (const PixelRect& rect : stand.bench.platform.TakePresented())
    EXPECT_TRUE(rect.Cut(light.place).Empty());
}

/// A display that has told of one refresh, long ago.
class Idle : public ScriptedPlatform {
 public:
  using ScriptedPlatform::ScriptedPlatform;
  std::optional<Moment> LastFrame() override { return Moment{0}; }
};

TEST(Effects, EndOnADisplayThatHasTakenNoPictureForAWhile) {
  sdl::Artist artist;
  Idle platform({.refresh_rate = kRefreshRate}, artist);
  Stage theatre(platform, korvane::Assets(), "Title");
  const auto form = std::make_shared<NotingForm>(theatre);
  Image block(*form, {3000, 3000, 480, 240}, nullptr, true);
  theatre.Show(form, kModeless);
  platform.Pass(std::chrono::seconds(10));
  theatre.Effects().Begin(block, look::Flash(block, 0xFF8000, milliseconds(200)));
  theatre.PaintNow();
  EXPECT_LT(theatre.Effects().NextBeat(), Moment::max());
  platform.Pass(milliseconds(220));
  theatre.PaintNow();
  EXPECT_EQ(theatre.Effects().NextBeat(), Moment::max());
}

}  // namespace
