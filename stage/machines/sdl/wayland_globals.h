// What a Wayland compositor offers, as far as SDL makes no use of it for us.
#pragma once

#include <cstdint>
#include <functional>
#include <list>

#include "stage/machines/sdl/wayland_objects.h"
#include "stage/painting/geometry.h"

struct wl_display;

namespace stage::sdl {

class WaylandGlobals;

/// A display of the compositor.
struct WaylandOutput {
  WaylandGlobals* owner = nullptr;
  std::uint32_t name = 0;
  Wayland<wl_output> output;
  PixelSize mode;
  int refresh = 0;      // pictures in a thousand seconds; 0 if not told
  int scale = 1;        // pixels of a point, rounded up
  bool turned = false;  // by a quarter

  /// As pictures are laid on it.
  PixelSize Pixels() const { return turned ? PixelSize{mode.height, mode.width} : mode; }
};

class WaylandGlobals {
 public:
  /// Raises NoDisplay if the compositor lacks what it takes to show a picture.
  explicit WaylandGlobals(wl_display* connection);
  WaylandGlobals(const WaylandGlobals&) = delete;
  WaylandGlobals& operator=(const WaylandGlobals&) = delete;

  /// Called when an output has come, gone or changed.
  std::function<void()> OutputsChanged = [] {};
  /// Where hands are; null if there is none. What it has is told once it is listened to.
  Wayland<wl_seat> Seat() const;

 private:
  void Take(std::uint32_t name, const char* interface, std::uint32_t version);
  void TakeOutput(std::uint32_t name);
  void Drop(std::uint32_t name);

  Wayland<wl_registry> registry_;
  std::uint32_t seat_ = 0;  // its name

 public:
  wl_display* const display;
  Wayland<wl_compositor> compositor;
  Wayland<wl_subcompositor> subcompositor;
  Wayland<wl_shm> shm;
  /// These are null where there is none.
  Wayland<wp_viewporter> viewporter;
  Wayland<wp_fractional_scale_manager_v1> fractional_scales;
  Wayland<zwp_pointer_constraints_v1> pointer_constraints;
  std::list<WaylandOutput> outputs;
};

}  // namespace stage::sdl
