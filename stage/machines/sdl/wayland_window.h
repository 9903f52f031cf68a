// Windows on Wayland without OpenGL.
#pragma once

#include <cstdint>

namespace stage::sdl {

/// What to tell SDL of a window on Wayland that the program itself paints, as flags of SDL_CreateWindow.
///
/// Before 2.32 SDL makes windows there for OpenGL or for Vulkan only, and for OpenGL it loads and starts the
/// whole of it: the display's driver and some 50 MB, with which nothing is ever drawn. For Vulkan it asks its
/// library no more than whether it knows windows. The program itself answers that.
std::uint32_t WaylandWindowFlags();

}  // namespace stage::sdl
