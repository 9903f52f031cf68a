#include "stage/picture.h"

#include <charconv>
#include <string>

namespace stage {
namespace {

constexpr std::string_view kRootTag = "<svg ";

int AttributeOf(std::string_view tag, std::string_view name) {
  const std::string start = " " + std::string(name) + "=\"";
  const std::size_t place = tag.find(start);
  int value = 0;
  if (place != std::string_view::npos) {
    const std::string_view number = tag.substr(place + start.size());
    std::from_chars(number.data(), number.data() + number.size(), value);
  }
  return value;
}

}  // namespace

PictureStore::PictureStore(std::span<const Asset> assets) {
  for (const Asset& asset : assets) {
    if (!asset.bytes.starts_with(kRootTag)) continue;
    const std::string_view root = asset.bytes.substr(0, asset.bytes.find('>'));
    pictures_.push_back({asset.name, asset.bytes, {AttributeOf(root, "width"), AttributeOf(root, "height")}});
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
