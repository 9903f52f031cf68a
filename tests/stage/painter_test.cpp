// Painting only what has changed must give the same picture as painting everything.
#include <gtest/gtest.h>

#include <array>
#include <random>

#include "stage/forms/dialogs.h"
#include "tests/sight.h"
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
      bench.Scribble();
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
  const Image still(*form, {9000, 3000, 225, 225}, ball.Picture, false);
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
  ball.Picture = bench.theatre.Pictures.Named("Imageball1");
  bench.theatre.PaintNow();
  EXPECT_EQ(bench.platform.TakePresented(), (std::vector<PixelRect>{{400, 200, 415, 215}}));
}

/// What is seen in some columns: how many characters, by the dark columns between them, and the lowest row.
std::pair<int, std::size_t> SeenIn(const std::vector<Pixel>& pixels, std::size_t width, std::size_t left,
                                   std::size_t right) {
  int apart = 0;
  std::size_t lowest = 0;
  bool before = false;
  for (std::size_t x = left; x < right; ++x) {
    bool lit = false;
    for (std::size_t i = x; i < pixels.size(); i += width) {
      if (pixels[i] == 0) continue;
      lit = true;
      lowest = std::max(lowest, i / width);
    }
    apart += lit && !before ? 1 : 0;
    before = lit;
  }
  return {apart, lowest};
}

TEST(Painting, ATextTooLongIsWrittenSmallerOnTheLineOfItsRow) {
  for (const Align align : {Align::kLeft, Align::kCenter, Align::kRight}) {
    for (const Double scale : {1.0, 1.37, 1.8, 2.4, 3.6}) {
      Bench bench({.scale = scale});
      bench.platform.Look(true);
      const auto form = std::make_shared<NotingForm>(bench.theatre);
      const Style style{{"Verdana", 20, true}, Rgb(255, 255, 0), align};
      const Label fits(*form, {0, 3000, 6000, 345}, style, "1");
      const Label smaller(*form, {6000, 3000, 1335, 345}, style, "147147");
      bench.theatre.Show(form, kModeless);
      const std::vector<Pixel> pixels = bench.Pixels();
      const auto width = std::size_t(bench.platform.DisplaySize().width);
      const std::size_t line = SeenIn(pixels, width, 0, width / 2).second;
      EXPECT_EQ(SeenIn(pixels, width, width / 2, width), std::pair(6, line)) << scale;
    }
  }
}

TEST(Painting, ShowsAllOfAPictureThatIsTooLargeToBeDrawnAtItsSize) {
  constexpr int kStrips = 8;
  const auto strips = [](Double scale) {
    Bench bench({.scale = scale});
    bench.platform.Look(true);
    const auto form = std::make_shared<NotingForm>(bench.theatre);
    const Image image(*form, {0, 0, 12000, 9000}, bench.theatre.Pictures.Named("titulo"), true);
    bench.theatre.Show(form, kModeless);
    const std::vector<Pixel> pixels = bench.Pixels();
    const int width = bench.platform.DisplaySize().width;
    std::array<Double, kStrips> bright{};
    for (std::size_t i = 0; i < pixels.size(); ++i) {
      const int strip = int(i) % width * kStrips / width;
      bright[std::size_t(strip)] += Double(pixels[i] >> 8 & 255U) / Double(pixels.size()) * kStrips;
    }
    return bright;
  };
  const auto drawn = strips(1);
  const auto enlarged = strips(3.6);
  ASSERT_GT(std::ranges::max(drawn) - std::ranges::min(drawn), 8);
  for (std::size_t i = 0; i < kStrips; ++i) EXPECT_NEAR(drawn[i], enlarged[i], 2) << i;
}

TEST(Painting, BringsALostPictureBackWithBlackBesideTheScreen) {
  for (const PixelSize display : {PixelSize{1000, 600}, PixelSize{800, 700}}) {
    Bench bench({.display = display});
    bench.platform.Look(true);
    const auto form = std::make_shared<NotingForm>(bench.theatre);
    // They stand out of the screen on all sides.
    const TwipRect places[] = {{-300, -300, 6000, 6000}, {9000, 6000, 6000, 6000}};
    const PictureRef picture = bench.theatre.Pictures.Named("ImagePedra1");
    std::vector<std::unique_ptr<Image>> images;
    Sight sight(bench.theatre);
    for (const TwipRect& at : places) {
      images.push_back(
          std::make_unique<Image>(*form, Design{at.left, at.top, at.width, at.height}, picture, true));
      sight.Show("ImagePedra1", at);
    }
    bench.theatre.Show(form, kModeless);
    for (const bool forgets : {false, true, false}) {
      bench.theatre.PaintNow();
      sight.ExpectShown();
      EXPECT_EQ(bench.platform.TakePresented(),
                (std::vector<PixelRect>{{0, 0, display.width, display.height}}));
      bench.Scribble();
      bench.platform.Send(DisplayChanged{});
      if (forgets) bench.theatre.ForgetInput();
      bench.theatre.DoEvents();
    }
  }
}

TEST(Painting, OfAFormThatIsNoRectangleShowsItsPartsAtEveryScale) {
  constexpr Asset kGrey{"grey", R"(<svg xmlns="http://www.w3.org/2000/svg" width="20" height="10">
<rect width="20" height="10" fill="#808080"/></svg>)"};
  const PictureStore pictures{{&kGrey, 1}};
  for (const Double scale : {1.0, 1.37, 1.8, 2.4}) {
    Bench bench({.scale = scale});
    bench.platform.Look(true);
    const auto form = std::make_shared<NotingForm>(bench.theatre);
    form->Picture = pictures.Named("grey");
    form->Width = 300;
    form->Height = 150;
    // In the grid of the picture: without a corner, a hole and the end of a row.
    const std::vector<stage::Run> left_out{{0, 0, 3}, {1, 0, 1}, {4, 7, 12}, {9, 13, 20}};
    bench.theatre.Show(form, kModeless);
    bench.theatre.PaintNow();
    form->SetWindowRgn(std::make_shared<WindowRegion>(PixelSize{20, 10}, left_out));
    for (const int at : {0, 1500}) {
      form->Left = Single(at);
      form->Top = Single(at);
      const std::vector<Pixel> pixels = bench.Pixels();
      const PixelRect place = bench.theatre.Painting().View().ToPixels(form->Interior());
      const int width = bench.platform.DisplaySize().width;
      for (int i = 0; i < int(pixels.size()); ++i) {
        const PixelPoint pixel{i % width - place.left, i / width - place.top};
        const int column = pixel.x * 20 / place.Width();
        const int row = pixel.y * 10 / place.Height();
        const bool inside =
            pixel.x >= 0 && pixel.x < place.Width() && pixel.y >= 0 && pixel.y < place.Height();
        const bool seen = inside && std::ranges::none_of(left_out, [&](const stage::Run& run) {
                            return row == run.y && column >= run.x0 && column < run.x1;
                          });
        ASSERT_EQ(pixels[std::size_t(i)], seen ? 0x808080U : 0U) << pixel.x << ' ' << pixel.y << ' ' << scale;
      }
    }
  }
}

TEST(Painting, OfABoxHidesWhatLiesBelowItAndOfAPictureIsNoLargerThanThat) {
  Bench bench;
  bench.platform.Look(true);
  const auto form = std::make_shared<NotingForm>(bench.theatre);
  const PictureRef block = bench.theatre.Pictures.Named("ImagePedra1");
  const Image below(*form, {0, 0, 3000, 3000}, block, true);
  Image ball(*form, {6000, 3000, 0, 0}, bench.theatre.Pictures.Named("Imageball0"), false);
  ball.Width = ball.Height = 900;
  PictureBox box(*form, {600, 600, 900, 900});
  const Image inside(box, {300, 300, 900, 300}, block, true);
  bench.theatre.Show(form, kModeless);
  for (const int left : {600, 6000}) {
    box.Left = Single(left);
    bench.theatre.PaintNow();
    Sight sight(bench.theatre);
    sight.Show("ImagePedra1", {0, 0, 3000, 3000});
    sight.Show("Imageball0", {6000, 3000, 225, 225});
    const TwipRect place{Double(left), 600, 900, 900};
    sight.Within(place);
    sight.Fill(place, 0);
    sight.Show("ImagePedra1", {place.left + 300, 900, 900, 300});
    sight.ExpectShown();
  }
}

TEST(Painting, OfADialogLeavesTheFormsBelowAsTheyAre) {
  constexpr Pixel kFrame = 0xB9C2D6;
  constexpr Pixel kFocused = 0xFFD23F;
  constexpr Words kTitle{"LiberationSans-Bold", 9.75, 0xFFD23F};
  constexpr Words kText{"LiberationSans-Regular", 9.75, 0xF0F0F0};
  constexpr Words kButton{"LiberationSans-Regular", 9.75, 0xF0F0F0, Align::kCenter};
  constexpr Double kLine = 13 * 15 * 1.2;
  for (const bool asks : {false, true}) {
    SCOPED_TRACE(asks);
    Bench bench;
    bench.platform.Look(true);
    const auto form = std::make_shared<NotingForm>(bench.theatre);
    const Image image(*form, {0, 0, 12000, 9000}, bench.theatre.Pictures.Named("ImagePedra1"), true);
    bench.theatre.Show(form, kModeless);
    const Double width = asks ? 4800 : 3600;
    const Double height = asks ? 2400 : 1900;
    const Double left = (12000 - width) / 2;
    const Double top = (9000 - height) / 2;
    const auto look = [&](int focus) {
      Sight sight(bench.theatre);
      sight.Show("ImagePedra1", {0, 0, 12000, 9000});
      sight.Within({left, top, width, height});
      sight.Fill({left, top, width, height}, 0);
      sight.Write("Title", kTitle, {left + 240, top + 90, width, 420});
      sight.Write("Words", kText, {left + 240, top + 660, width, 300});
      const int buttons = asks ? 2 : 1;
      for (int i = 0; i < buttons; ++i) {
        const TwipRect place{left + (width - buttons * 1440 + 240) / 2 + i * 1440, top + height - 660, 1200,
                             420};
        sight.Fill(place, 0x2A3348);
        sight.Frame(place, i + (asks ? 1 : 0) == focus ? kFocused : kFrame);
        sight.Write(i == 0 ? "OK" : "Cancel", kButton,
                    {place.left, place.top + (420 - kLine) / 2, 1200, kLine});
      }
      if (asks) {
        const TwipRect field{left + 240, top + 1080, width - 480, 390};
        sight.Frame(field, 0x606060);
        if (focus == 0) sight.Fill({field.left + 60, field.top + (390 - kLine) / 2, 15, kLine}, 0xFFFFFF);
      }
      sight.Frame({left, top, width, height}, kFrame);
      sight.ExpectShown();
    };
    int focus = 0;
    bench.platform.Director = [&] {
      look(focus);
      bench.Press(++focus < (asks ? 3 : 1) ? key::kTab : key::kEsc);
    };
    if (asks) {
      bench.theatre.InputBox("Words");
    } else {
      bench.theatre.MsgBox("Words");
    }
    EXPECT_EQ(focus, asks ? 3 : 1);
  }
}

}  // namespace
