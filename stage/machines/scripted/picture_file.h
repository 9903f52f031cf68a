// Keeps what tests and tools have painted.
#pragma once

#include <filesystem>

#include "stage/painting/bitmap.h"

namespace stage {

/// False if the file cannot be written. The machine's artist comes with it.
bool SavePng(const Framebuffer& picture, const std::filesystem::path& file);

}  // namespace stage
