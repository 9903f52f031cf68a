// Painting only what has changed must give the same picture as painting everything.
#include <gtest/gtest.h>

#include <random>

#include "stage/dialogs.h"
#include "tests/stage/bench.h"

namespace {

using namespace tests;

TEST(Painting, OfChangesEqualsPaintingAnew) {
  for (const Double scale : {1.0, 1.8, 0.77}) {
    Bench bench({.scale = scale, .refresh_rate = 144});
    bench.platform.Look(true);
    const auto form = std::make_shared<NotingForm>(bench.theatre);
    ControlArray<Image> blocks(*form, "blocks", [&](auto& array) {
      array.Design(0, Design{0, 0, 480, 240}, bench.theatre.Pictures.Named("ImagePedra1"), true);
    });
    Image ball(*form, {0, 0, 225, 225}, bench.theatre.Pictures.Named("Imageball0"), false);
    const Glide glide(ball);
    Label label(*form, {5000, 5000, 700, 120}, {{"Arial", 18, true}, Rgb(255, 0, 0), Align::kRight}, "0");
    PictureBox box(*form, {3000, 3000, 900, 300});
    Image inside(box, {-15, 0, 1005, 270}, bench.theatre.Pictures.Named("barra"), true);
    bench.theatre.Show(form, kModeless);
    std::mt19937 draws(5);
    const auto any = [&](int most) { return Single(draws() % unsigned(most)); };
    for (int step = 0; step < 300; ++step) {
      const Integer i = int(draws() % 20);
      if (step % 50 == 25) {
        bench.platform.Rescale(scale * (1 + any(4) / 4));
        bench.theatre.DoEvents();
      }
      switch (draws() % 10) {
        case 0:
          if (!blocks.Exists(i)) blocks.Load(i);
          blocks(i).Visible = true;
          break;
        case 1:
          if (i > 0 && blocks.Exists(i)) blocks.Unload(i);
          break;
        case 2:
          if (blocks.Exists(i)) blocks(i).Left = any(12000);
          break;
        case 3:
          ball.Left = any(13000) - 500;
          ball.Top = any(9500) - 500;
          break;
        case 4:
          ball.Left = Single(ball.Left + 100);
          ball.Top = Single(ball.Top - 70);
          break;
        case 5:
          label.Caption = "J" + std::to_string(step);
          break;
        case 6:
          box.Left = any(12000);
          break;
        case 7:
          inside.Width = any(1200);
          break;
        default:
          ball.Visible = !ball.Visible;
          break;
      }
      bench.platform.Pass(Moment(draws() % 10000));
      bench.theatre.DoEvents();
      const std::vector<Pixel> grown = bench.Pixels();
      if (step % 10 != 0) continue;
      bench.theatre.Repaint();
      ASSERT_EQ(grown, bench.Pixels()) << "step " << step << " at scale " << scale;
    }
  }
}

TEST(Painting, ShowsOnlyWhatHasChanged) {
  Bench bench;
  bench.platform.Look(true);
  const auto form = std::make_shared<NotingForm>(bench.theatre);
  Image ball(*form, {3000, 3000, 225, 225}, bench.theatre.Pictures.Named("Imageball0"), false);
  bench.theatre.Show(form, kModeless);
  bench.theatre.PaintNow();
  bench.platform.TakePresented();
  ball.Left = 3000;
  bench.theatre.PaintNow();
  EXPECT_TRUE(bench.platform.TakePresented().empty());
  ball.Left = 6000;
  bench.theatre.PaintNow();
  EXPECT_EQ(bench.platform.TakePresented(),
            (std::vector<PixelRect>{{200, 200, 215, 215}, {400, 200, 415, 215}}));
}

/// Characters of a line as they are seen: columns with something in them, and none between.
int SeenApart(const std::vector<Pixel>& pixels, int width) {
  int apart = 0;
  bool before = false;
  for (int x = 0; x < width; ++x) {
    bool lit = false;
    for (auto i = std::size_t(x); i < pixels.size(); i += std::size_t(width)) lit = lit || pixels[i] != 0;
    apart += lit && !before ? 1 : 0;
    before = lit;
  }
  return apart;
}

TEST(Painting, LabelsShowTheirTextWhole) {
  for (const Align align : {Align::kLeft, Align::kCenter, Align::kRight}) {
    for (const Double scale : {1.0, 1.8, 3.6}) {
      Bench bench({.scale = scale});
      bench.platform.Look(true);
      const auto form = std::make_shared<NotingForm>(bench.theatre);
      const Label label(*form, {6000, 3000, 1335, 345}, {{"Verdana", 20, true}, Rgb(255, 255, 0), align},
                        "126085");
      bench.theatre.Show(form, kModeless);
      EXPECT_EQ(SeenApart(bench.Pixels(), bench.platform.DisplaySize().width), 6) << "at scale " << scale;
    }
  }
}

/// The lowest row in which something is seen, in these columns.
int LowestSeen(const std::vector<Pixel>& pixels, int width, int left, int right) {
  for (int y = int(pixels.size()) / width - 1; y >= 0; --y) {
    for (int x = left; x < right; ++x) {
      if (pixels[std::size_t(y) * std::size_t(width) + std::size_t(x)] != 0) return y;
    }
  }
  return -1;
}

TEST(Painting, ATextWrittenSmallerStandsOnTheLineOfItsRow) {
  for (const Double scale : {1.0, 1.37, 1.8, 2.4, 3.6}) {
    Bench bench({.scale = scale});
    bench.platform.Look(true);
    const auto form = std::make_shared<NotingForm>(bench.theatre);
    const Style style{{"Verdana", 20, true}, Rgb(255, 255, 0)};
    const Label fits(*form, {0, 3000, 6000, 345}, style, "1");
    const Label smaller(*form, {6000, 3000, 1335, 345}, style, "1111111111111111");
    bench.theatre.Show(form, kModeless);
    const std::vector<Pixel> pixels = bench.Pixels();
    const int width = bench.platform.DisplaySize().width;
    EXPECT_EQ(LowestSeen(pixels, width, width / 2, width), LowestSeen(pixels, width, 0, width / 2)) << scale;
  }
}

TEST(Painting, PutsTheScreenInTheMiddleOfOddDisplays) {
  const Viewport view({12000, 9000}, {1000, 600});
  EXPECT_EQ(view.Area(), (PixelRect{100, 0, 900, 600}));
  EXPECT_NEAR(view.ToTwips({100, 0}).x, 0, 1e-9);
  EXPECT_NEAR(view.ToTwips({900, 600}).x, 12000, 1e-9);
}

}  // namespace
