// The box that the paddle is shown in leaves out a part of its picture, but nothing of its body.
#include <gtest/gtest.h>

#include "tests/mesa.h"

namespace {

using namespace tests;

std::ptrdiff_t Lit(std::span<const stage::Pixel> pixels) {
  return std::ssize(pixels) - std::ranges::count(pixels, 0U);
}

TEST(PaddlePicture, IsSeenWholeAtEveryWidthAndPlace) {
  constexpr int kGrow = 4;
  constexpr int kShrink = 5;
  for (const Single screen_width : {11250.0F, 12000.0F, 16000.0F, 32000.0F}) {
    for (const stage::Double scale : {1.0, 1.07, 1.2, 1.28, 1.5, 1.8, 2.4, 3.6}) {
      Mesa mesa({{"levels/1.sav", kQuietLevel}}, {.screen = {screen_width, 9000}, .scale = scale});
      mesa.platform->Look(true);
      game& jogo = mesa.Jogo();
      jogo.ball.Visible = false;
      stage::Painter& painter = mesa.Palco().Painting();
      jogo.consedebonus(kShrink);
      for (int tamanho = 1; tamanho <= 3; ++tamanho) {
        const stage::PixelRect picture = painter.View().ToPixels(jogo.Image1.Area());
        const auto drawn =
            painter.Made().Of(*mesa.Palco().Pictures.Named("barra"), {picture.Width(), picture.Height()});
        for (const Single left : {1000.0F, 1003.0F, 1006.0F, 1010.0F}) {
          jogo.User.Left = left;
          mesa.Palco().PaintNow();
          const stage::Framebuffer canvas = *mesa.platform->Canvas();
          const stage::PixelRect box = painter.View().ToPixels(jogo.User.Area());
          std::ptrdiff_t seen = 0;
          for (int y = box.top; y < box.bottom; ++y) {
            seen += Lit({canvas.Row(y) + box.left, std::size_t(box.Width())});
          }
          ASSERT_EQ(seen, Lit(drawn->pixels))
              << "size " << tamanho << " at " << left << " on " << screen_width << ", scale " << scale;
        }
        jogo.consedebonus(kGrow);
      }
    }
  }
}

}  // namespace
