// Shapes of windows, made from bitmaps.
#pragma once

#include <memory>
#include <vector>

#include "stage/forms/window_region.h"
#include "stage/painting/bitmap.h"

namespace korvane {

/// All horizontal stretches of pixels of exactly this colour, row by row and left to right.
std::vector<stage::Run> CorridasDaCor(const stage::Bitmap& bitmap, stage::Pixel cor);

/// All pixels of the bitmap that are not of this colour.
std::shared_ptr<const stage::WindowRegion> RegiaoDeBitmap(const stage::Bitmap& bitmap, stage::Pixel cor);

}  // namespace korvane
