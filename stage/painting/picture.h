// Pictures and other files that the program carries in itself.
#pragma once

#include <deque>
#include <span>
#include <string_view>

#include "stage/painting/geometry.h"

namespace stage {

/// A file carried in the program, named without folder and ending.
struct Asset {
  std::string_view name;
  std::string_view bytes;
};

/// A drawing with a natural size, in pixels of the design resolution. Scaled to whatever size it is shown at.
struct Picture {
  std::string_view name;
  std::string_view svg;
  PixelSize natural;
};

/// What a control shows; null shows nothing.
using PictureRef = const Picture*;

/// All pictures that the program carries. They stay available for the whole run.
class PictureStore {
 public:
  explicit PictureStore(std::span<const Asset> assets);

  /// Raises RuntimeError if there is no picture of that name.
  PictureRef Named(std::string_view name) const;
  /// The picture `name` followed by `number`.
  PictureRef Named(std::string_view name, int number) const;
  const std::deque<Picture>& All() const { return pictures_; }

 private:
  std::deque<Picture> pictures_;
};

}  // namespace stage
