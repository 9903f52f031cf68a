#include "stage/painting/picture.h"

#include <charconv>
#include <string>

#include "stage/painting/shaped_drawing.h"

namespace stage {
namespace {

constexpr std::string_view kRootTag = "<svg ";

int NumberIn(std::string_view text) {
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

}  // namespace

PictureStore::PictureStore(std::span<const Asset> assets) {
  for (const Asset& asset : assets) {
    if (!asset.bytes.starts_with(kRootTag)) continue;
    const std::string_view root = asset.bytes.substr(0, asset.bytes.find('>'));
    const PixelSize natural{NumberIn(AttributeOf(root, "width")), NumberIn(AttributeOf(root, "height"))};
    pictures_.push_back({asset.name, asset.bytes, natural});
  }
}

PictureRef PictureStore::Named(std::string_view name) const {
  for (const Picture& picture : pictures_) {
    if (picture.name == name) return &picture;
  }
  throw RuntimeError("no picture " + std::string(name));
}

PictureRef PictureStore::Named(std::string_view name, int number) const {
  return Named(std::string(name) + std::to_string(number));
}

}  // namespace stage
