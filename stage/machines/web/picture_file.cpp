#include "stage/machines/scripted/picture_file.h"

// What runs without a page paints nothing worth keeping.
bool stage::SavePng(const Framebuffer&, const std::filesystem::path&) { return false; }
