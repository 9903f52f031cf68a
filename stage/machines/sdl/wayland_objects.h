// Objects of the Wayland connection, each of which is destroyed with its owner.
#pragma once

#include <memory>

struct wl_buffer;
struct wl_callback;
struct wl_compositor;
struct wl_output;
struct wl_pointer;
struct wl_registry;
struct wl_seat;
struct wl_shm;
struct wl_subcompositor;
struct wl_subsurface;
struct wl_surface;
struct wp_fractional_scale_manager_v1;
struct wp_fractional_scale_v1;
struct wp_viewport;
struct wp_viewporter;
struct zwp_locked_pointer_v1;
struct zwp_pointer_constraints_v1;

namespace stage::sdl {

struct DestroyWayland {
  void operator()(wl_buffer* object) const;
  void operator()(wl_callback* object) const;
  void operator()(wl_compositor* object) const;
  void operator()(wl_output* object) const;
  void operator()(wl_pointer* object) const;
  void operator()(wl_registry* object) const;
  void operator()(wl_seat* object) const;
  void operator()(wl_shm* object) const;
  void operator()(wl_subcompositor* object) const;
  void operator()(wl_subsurface* object) const;
  void operator()(wl_surface* object) const;
  void operator()(wp_fractional_scale_manager_v1* object) const;
  void operator()(wp_fractional_scale_v1* object) const;
  void operator()(wp_viewport* object) const;
  void operator()(wp_viewporter* object) const;
  void operator()(zwp_locked_pointer_v1* object) const;
  void operator()(zwp_pointer_constraints_v1* object) const;
};

template <class Object>
using Wayland = std::unique_ptr<Object, DestroyWayland>;

}  // namespace stage::sdl
