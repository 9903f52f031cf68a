// A level as the game shows it, before the first launch.
#pragma once

#include <filesystem>
#include <string_view>

#include "stage/painting/geometry.h"

namespace level {

/// Plays the start of the game with this text as its first level and writes the picture, in the shape and the
/// lines of `display`. Raises std::runtime_error if the game cannot load the level or the picture cannot be
/// written.
void Draw(std::string_view text, const std::filesystem::path& picture, stage::PixelSize display);

}  // namespace level
