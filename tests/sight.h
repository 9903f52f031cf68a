// What the display must show, painted from nothing in the plainest way and held against what a program shows.
#pragma once

#include <gtest/gtest.h>

#include <cmath>

#include "assets/assets.h"
#include "stage/painting/shaped_drawing.h"
#include "stage/stage.h"

namespace tests {

/// How a text is written; nothing for a picture.
struct Words {
  const char* font = "";  // of the assets
  double points = 0;
  stage::Pixel colour = 0;
  stage::Align align = stage::Align::kLeft;
};

/// All places are in twips of the screen.
class Sight {
 public:
  explicit Sight(stage::Stage& stage)
      : stage_(stage),
        size_(stage.Machine().DisplaySize()),
        pixels_(std::size_t(size_.width) * std::size_t(size_.height)),
        scale_(std::min(size_.width * 15 / double(stage.Screen.Width),
                        size_.height * 15 / double(stage.Screen.Height))),
        left_((size_.width - stage.Screen.Width / 15.0 * scale_) / 2),
        top_((size_.height - stage.Screen.Height / 15.0 * scale_) / 2) {
    Within({0, 0, stage.Screen.Width, stage.Screen.Height});
  }

  /// What follows is seen inside this rectangle only.
  void Within(const stage::TwipRect& rect) { clip_ = Pixels(rect); }

  void Fill(const stage::TwipRect& rect, stage::Pixel colour) {
    Each(Pixels(rect), [&](int, int, stage::Pixel& pixel) { pixel = colour; });
  }
  /// Lines of one design pixel around the rectangle.
  void Frame(const stage::TwipRect& rect, stage::Pixel colour) {
    const stage::PixelRect all = Pixels(rect);
    const int line = std::max(1, int(std::lround(scale_)));
    Each(all, [&](int x, int y, stage::Pixel& pixel) {
      const int in = std::min(std::min(x, all.Width() - 1 - x), std::min(y, all.Height() - 1 - y));
      if (in < line) pixel = colour;
    });
  }
  void Show(std::string_view picture, const stage::TwipRect& rect, bool black = true) {
    const stage::PixelRect place = Pixels(rect);
    const stage::PixelSize size{place.Width(), place.Height()};
    const stage::Bitmap drawn =
        stage_.Machine().Drawing().Draw(DrawingFor(*stage_.Pictures.Named(picture), size), size);
    Each(place, [&](int x, int y, stage::Pixel& pixel) {
      if (black || drawn.At(x, y) != 0) pixel = drawn.At(x, y);
    });
  }
  void Write(const std::string& text, const Words& words, const stage::TwipRect& rect) {
    const stage::Coverage written = stage_.Machine().Drawing().Write(FaceOf(words), text);
    stage::PixelRect place = Pixels(rect);
    const int spare = place.Width() - written.size.width;
    place.left += words.align == stage::Align::kLeft    ? 0
                  : words.align == stage::Align::kRight ? spare
                                                        : spare / 2;
    place.right = place.left + written.size.width;
    place.bottom = place.top + written.size.height;
    Each(place, [&](int x, int y, stage::Pixel& pixel) {
      const int alpha = written.alpha[std::size_t(y) * std::size_t(written.size.width) + std::size_t(x)];
      const int part = alpha + (alpha >> 7);  // of 256
      const auto mixed = [&](int shift) {
        const auto of = [&](stage::Pixel colour) { return int(colour >> shift & 255U); };
        return stage::Pixel((of(pixel) * (256 - part) + of(words.colour) * part) / 256) << shift;
      };
      pixel = mixed(16) | mixed(8) | mixed(0);
    });
  }

  double Width(const std::string& text, const Words& words) const {
    return stage_.Machine().Drawing().TextWidth(FaceOf(words), text) * 15 / scale_;
  }

  /// The display shows this and nothing else, as it was last painted.
  void ExpectShown() const {
    const stage::Framebuffer canvas = stage_.Machine().Canvas().value();
    int unlike = 0;
    std::string first;
    for (int y = 0; y < size_.height; ++y) {
      for (int x = 0; x < size_.width; ++x) {
        const stage::Pixel mine = pixels_[std::size_t(y) * std::size_t(size_.width) + std::size_t(x)];
        const stage::Pixel shown = canvas.Row(y)[x];
        if (mine == shown || unlike++ > 0) continue;
        std::ostringstream told;
        told << x << ',' << y << std::hex << ": " << shown << " instead of " << mine;
        first = told.str();
      }
    }
    EXPECT_EQ(unlike, 0) << "first at " << first;
  }

 private:
  stage::Face FaceOf(const Words& words) const {
    const auto font = std::ranges::find(korvane::Assets(), std::string_view(words.font), &stage::Asset::name);
    return {font->bytes, int(std::lround(words.points * 96 / 72 * scale_))};
  }
  stage::PixelRect Pixels(const stage::TwipRect& rect) const {
    const auto nearest = [](double pixels) { return int(std::lround(pixels)); };
    const int left = nearest(left_ + rect.left / 15 * scale_);
    const int top = nearest(top_ + rect.top / 15 * scale_);
    return {left, top, left + nearest(rect.width / 15 * scale_), top + nearest(rect.height / 15 * scale_)};
  }
  /// Calls `act` with each pixel of the rectangle that is seen, and where it lies in the rectangle.
  template <class Act>
  void Each(const stage::PixelRect& rect, const Act& act) {
    const stage::PixelRect seen = rect.Cut(clip_).Cut({0, 0, size_.width, size_.height});
    for (int y = seen.top; y < seen.bottom; ++y) {
      for (int x = seen.left; x < seen.right; ++x)
        act(x - rect.left, y - rect.top, pixels_[std::size_t(y) * std::size_t(size_.width) + std::size_t(x)]);
    }
  }

  stage::Stage& stage_;
  stage::PixelSize size_;
  std::vector<stage::Pixel> pixels_;
  double scale_ = 1;
  double left_ = 0;
  double top_ = 0;
  stage::PixelRect clip_;
};

}  // namespace tests
