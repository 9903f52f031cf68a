#include "screens/PicDeclerations.h"

namespace korvane {

std::vector<stage::Run> CorridasDaCor(const stage::Bitmap& bitmap, stage::Pixel cor) {
  std::vector<stage::Run> corridas;
  const auto [W, H] = bitmap.size;
  for (int y = 0; y < H; ++y) {
    for (int x = 0; x < W; ++x) {
      while (x < W && bitmap.At(x, y) != cor) ++x;
      const int x0 = x;
      while (x < W && bitmap.At(x, y) == cor) ++x;
      if (x0 < x) corridas.push_back({y, x0, x});
    }
  }
  return corridas;
}

std::shared_ptr<const stage::WindowRegion> RegiaoDeBitmap(const stage::Bitmap& bitmap, stage::Pixel cor) {
  return std::make_shared<const stage::WindowRegion>(bitmap.size, CorridasDaCor(bitmap, cor));
}

}  // namespace korvane
