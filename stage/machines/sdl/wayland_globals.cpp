#include "stage/machines/sdl/wayland_globals.h"

#include <fractional-scale-v1.h>
#include <pointer-constraints-unstable-v1.h>
#include <viewporter.h>
#include <wayland-client.h>

#include <algorithm>
#include <string_view>

#include "stage/machines/sdl/no_display.h"

namespace stage::sdl {
namespace {

constexpr std::uint32_t kCompositorVersion = 4;  // the first that takes damage in pixels
constexpr std::uint32_t kSeatVersion = 3;        // the last without events that say when a group of them ends
constexpr std::uint32_t kOutputVersion = 2;      // the first that tells its scale

template <class Object>
void Bind(Wayland<Object>& object, wl_registry* registry, std::uint32_t name, const wl_interface& interface,
          std::uint32_t version) {
  if (!object) object.reset(static_cast<Object*>(wl_registry_bind(registry, name, &interface, version)));
}

}  // namespace

WaylandGlobals::WaylandGlobals(wl_display* connection)
    : registry_(wl_display_get_registry(connection)), display(connection) {
  static const wl_registry_listener kListener{
      [](void* self, wl_registry*, std::uint32_t name, const char* interface, std::uint32_t version) {
        static_cast<WaylandGlobals*>(self)->Take(name, interface, version);
      },
      [](void* self, wl_registry*, std::uint32_t name) { static_cast<WaylandGlobals*>(self)->Drop(name); }};
  wl_registry_add_listener(registry_.get(), &kListener, this);
  wl_display_roundtrip(display);  // what there is
  wl_display_roundtrip(display);  // what the outputs are like
  if (!compositor || !subcompositor || !shm) throw NoDisplay("the compositor shows no pictures of this kind");
}

void WaylandGlobals::Take(std::uint32_t name, const char* interface, std::uint32_t version) {
  const std::string_view is = interface;
  wl_registry* const registry = registry_.get();
  if (is == wl_compositor_interface.name && version >= kCompositorVersion) {
    Bind(compositor, registry, name, wl_compositor_interface, kCompositorVersion);
  } else if (is == wl_subcompositor_interface.name) {
    Bind(subcompositor, registry, name, wl_subcompositor_interface, 1);
  } else if (is == wl_shm_interface.name) {
    Bind(shm, registry, name, wl_shm_interface, 1);
  } else if (is == wl_seat_interface.name && version >= kSeatVersion) {
    seat_ = name;
  } else if (is == wp_viewporter_interface.name) {
    Bind(viewporter, registry, name, wp_viewporter_interface, 1);
  } else if (is == wp_fractional_scale_manager_v1_interface.name) {
    Bind(fractional_scales, registry, name, wp_fractional_scale_manager_v1_interface, 1);
  } else if (is == zwp_pointer_constraints_v1_interface.name) {
    Bind(pointer_constraints, registry, name, zwp_pointer_constraints_v1_interface, 1);
  } else if (is == wl_output_interface.name && version >= kOutputVersion) {
    TakeOutput(name);
  }
}

Wayland<wl_seat> WaylandGlobals::Seat() const {
  Wayland<wl_seat> seat;
  if (seat_ != 0) Bind(seat, registry_.get(), seat_, wl_seat_interface, kSeatVersion);
  return seat;
}

void WaylandGlobals::TakeOutput(std::uint32_t name) {
  WaylandOutput& output = outputs.emplace_back();
  output.name = name;
  output.owner = this;
  Bind(output.output, registry_.get(), name, wl_output_interface, kOutputVersion);
  static const wl_output_listener kListener = [] {
    wl_output_listener listener{};
    listener.geometry = [](void* self, wl_output*, std::int32_t, std::int32_t, std::int32_t, std::int32_t,
                           std::int32_t, const char*, const char*, std::int32_t transform) {
      // The odd ones are those turned by a quarter, mirrored or not.
      static_cast<WaylandOutput*>(self)->turned = (transform & WL_OUTPUT_TRANSFORM_90) != 0;
    };
    listener.mode = [](void* self, wl_output*, std::uint32_t flags, std::int32_t width, std::int32_t height,
                       std::int32_t refresh) {
      if ((flags & WL_OUTPUT_MODE_CURRENT) == 0) return;
      static_cast<WaylandOutput*>(self)->mode = {width, height};
      static_cast<WaylandOutput*>(self)->refresh = refresh;
    };
    listener.done = [](void* self, wl_output*) {
      static_cast<WaylandOutput*>(self)->owner->OutputsChanged();
    };
    listener.scale = [](void* self, wl_output*, std::int32_t scale) {
      static_cast<WaylandOutput*>(self)->scale = scale;
    };
    return listener;
  }();
  wl_output_add_listener(output.output.get(), &kListener, &output);
}

void WaylandGlobals::Drop(std::uint32_t name) {
  const auto gone = std::ranges::find(outputs, name, &WaylandOutput::name);
  if (gone == outputs.end()) return;
  outputs.erase(gone);
  OutputsChanged();
}

}  // namespace stage::sdl
