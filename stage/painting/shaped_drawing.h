// Drawings made for the shape that they are shown in.
#pragma once

#include <string>
#include <string_view>

#include "stage/painting/picture.h"

namespace stage {

/// The picture as the text of an SVG drawing that is `size` display pixels large, each side from 1 on. One
/// whose root says `data-shape="any"` keeps its edges and its patterns as they are drawn, whatever the shape,
/// as assets/pictures/README.md tells; any other is stretched, and so is one that cannot be read.
std::string DrawingFor(const Picture& picture, PixelSize size);

/// The text of an attribute within a tag of a drawing, empty if there is none.
std::string_view AttributeOf(std::string_view tag, std::string_view name);

}  // namespace stage
