#include "stage/machines/sdl/wayland_objects.h"

#include <fractional-scale-v1.h>
#include <pointer-constraints-unstable-v1.h>
#include <viewporter.h>
#include <wayland-client.h>

namespace stage::sdl {

void DestroyWayland::operator()(wl_buffer* object) const { wl_buffer_destroy(object); }
void DestroyWayland::operator()(wl_callback* object) const { wl_callback_destroy(object); }
void DestroyWayland::operator()(wl_compositor* object) const { wl_compositor_destroy(object); }
void DestroyWayland::operator()(wl_output* object) const { wl_output_destroy(object); }
void DestroyWayland::operator()(wl_pointer* object) const { wl_pointer_destroy(object); }
void DestroyWayland::operator()(wl_registry* object) const { wl_registry_destroy(object); }
void DestroyWayland::operator()(wl_seat* object) const { wl_seat_destroy(object); }
void DestroyWayland::operator()(wl_shm* object) const { wl_shm_destroy(object); }
void DestroyWayland::operator()(wl_subcompositor* object) const { wl_subcompositor_destroy(object); }
void DestroyWayland::operator()(wl_subsurface* object) const { wl_subsurface_destroy(object); }
void DestroyWayland::operator()(wl_surface* object) const { wl_surface_destroy(object); }
void DestroyWayland::operator()(wp_fractional_scale_manager_v1* object) const {
  wp_fractional_scale_manager_v1_destroy(object);
}
void DestroyWayland::operator()(wp_fractional_scale_v1* object) const {
  wp_fractional_scale_v1_destroy(object);
}
void DestroyWayland::operator()(wp_viewport* object) const { wp_viewport_destroy(object); }
void DestroyWayland::operator()(wp_viewporter* object) const { wp_viewporter_destroy(object); }
void DestroyWayland::operator()(zwp_locked_pointer_v1* object) const {
  zwp_locked_pointer_v1_destroy(object);
}
void DestroyWayland::operator()(zwp_pointer_constraints_v1* object) const {
  zwp_pointer_constraints_v1_destroy(object);
}

}  // namespace stage::sdl
