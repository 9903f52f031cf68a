#include "stage/machines/sdl/wayland_window.h"

#include <SDL_version.h>
#include <SDL_video.h>
#include <SDL_vulkan.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace {

/// As Vulkan lays it out.
struct Extension {
  std::array<char, 256> name{};
  std::uint32_t version = 1;
};

Extension Named(std::string_view name) {
  Extension extension;
  std::ranges::copy(name, extension.name.begin());
  return extension;
}

/// Tells how many extensions there are, and what they are to whoever has room for them.
int TellExtensions(const char* /*layer*/, std::uint32_t* count, Extension* extensions) {
  const std::array known{Named("VK_KHR_surface"), Named("VK_KHR_wayland_surface")};
  *count =
      extensions == nullptr ? std::uint32_t(known.size()) : std::min(*count, std::uint32_t(known.size()));
  if (extensions != nullptr) std::copy_n(known.begin(), *count, extensions);
  return 0;
}

}  // namespace

/// SDL finds it by its name, in what it takes for Vulkan's library.
extern "C" void* vkGetInstanceProcAddr(void* /*instance*/, const char* name) {
  const bool asked = std::string_view(name) == "vkEnumerateInstanceExtensionProperties";
  return asked ? reinterpret_cast<void*>(&TellExtensions) : nullptr;
}

namespace stage::sdl {

std::uint32_t WaylandWindowFlags() {
  constexpr const char* kThisProgram = "";
  SDL_version version{};
  SDL_GetVersion(&version);
  const bool needs_none =
      SDL_VERSIONNUM(version.major, version.minor, version.patch) >= SDL_VERSIONNUM(2, 32, 0);
  return !needs_none && SDL_Vulkan_LoadLibrary(kThisProgram) == 0 ? std::uint32_t{SDL_WINDOW_VULKAN} : 0;
}

}  // namespace stage::sdl
