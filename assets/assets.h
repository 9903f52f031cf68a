// The files that the program carries in itself.
#pragma once

#include <span>

#include "stage/painting/picture.h"

namespace korvane {

std::span<const stage::Asset> Assets();

}  // namespace korvane
