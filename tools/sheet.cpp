// korvane-sheet PICTURE.png [LINES]
// Every block and the paddle in many shapes on one picture, as a display of so many lines (600) shows them:
// to be looked at by whoever draws them.
#include <charconv>
#include <iostream>
#include <string>
#include <string_view>

#include "assets/assets.h"
#include "stage/machines/scripted/picture_file.h"
#include "stage/machines/sdl/artist.h"
#include "stage/painting/drawings.h"

namespace {

using namespace stage;

constexpr PixelSize kBlocks[] = {{300, 250}, {465, 225}, {300, 600},
                                 {600, 600}, {900, 250}, {1780, 250}};  // form units
constexpr int kPaddles[] = {687, 981, 1962};                            // twips
constexpr Double kPaddleHeight = 283;                                   // twips
constexpr Units kFormUnits{0.99375F, 0.9F};
constexpr Double kGap = 6;  // pixels of the design resolution
constexpr Double kSheetWidth = 400;

class Sheet {
 public:
  Sheet(Double scale, int rows) : scale_(scale), size_{Length(kSheetWidth), Length(rows * 44.0)} {
    pixels_.resize(std::size_t(size_.width) * std::size_t(size_.height));
  }

  /// To the right of what is there, `width` and `height` in twips.
  void Add(const Picture& picture, Double width, Double height) {
    const PixelSize size{Length(width / kTwipsPerPixel), Length(height / kTwipsPerPixel)};
    const auto drawn = drawings_.Of(picture, size);
    for (int y = 0; y < size.height; ++y) {
      for (int x = 0; x < size.width; ++x) {
        pixels_[std::size_t(top_ + y) * std::size_t(size_.width) + std::size_t(left_ + x)] = drawn->At(x, y);
      }
    }
    left_ += size.width + Length(kGap);
  }
  void NextRow() {
    left_ = Length(kGap);
    top_ += Length(44);
  }
  bool Save(const char* file) { return SavePng({size_, pixels_.data(), size_.width}, file); }

 private:
  int Length(Double design) const { return static_cast<int>(std::lround(design * scale_)); }

  Double scale_;
  PixelSize size_;
  std::vector<Pixel> pixels_;
  int left_ = Length(kGap);
  int top_ = Length(kGap);
  sdl::Artist artist_;
  Drawings drawings_{artist_, {}};
};

}  // namespace

int main(int argc, char** argv) {
  int lines = 600;
  if (const std::string_view word = argc > 2 ? argv[2] : ""; !word.empty()) {
    lines = 0;
    std::from_chars(word.data(), word.data() + word.size(), lines);
  }
  if (argc < 2 || lines < 100 || lines > 10'000) {
    std::cerr << "korvane-sheet PICTURE.png [LINES]\n";
    return 2;
  }
  const PictureStore store(korvane::Assets());
  Sheet sheet(lines / 600.0, 23);
  for (int type = 1; type <= 22; ++type) {
    if (type == 21) continue;
    for (const PixelSize& block : kBlocks) {
      sheet.Add(*store.Named("ImagePedra", type), Double(block.width) * kFormUnits.x,
                Double(block.height) * kFormUnits.y);
    }
    sheet.NextRow();
  }
  const PictureRef paddle = store.Named("barra");
  sheet.Add(*paddle, paddle->natural.width * kTwipsPerPixel, paddle->natural.height * kTwipsPerPixel);
  for (const int width : kPaddles) sheet.Add(*paddle, width, kPaddleHeight);
  return sheet.Save(argv[1]) ? 0 : 1;
}
