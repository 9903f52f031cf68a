#include "stage/machines/sdl/wayland_mouse.h"

#include <SDL_events.h>
#include <SDL_video.h>
#include <linux/input-event-codes.h>
#include <pointer-constraints-unstable-v1.h>
#include <wayland-client.h>

#include <cmath>

#include "stage/machines/sdl/keys.h"
#include "stage/machines/sdl/sdl_mouse.h"

namespace stage::sdl {
namespace {

WaylandMouse& As(void* self) { return *static_cast<WaylandMouse*>(self); }

PixelPlace PlaceOf(wl_fixed_t x, wl_fixed_t y) { return {wl_fixed_to_double(x), wl_fixed_to_double(y)}; }

}  // namespace

WaylandMouse::WaylandMouse(SDL_Window* window, wl_surface* surface,
                           std::shared_ptr<const WaylandGlobals> globals, const WaylandScreen& screen)
    : window_(window),
      surface_(surface),
      globals_(std::move(globals)),
      screen_(screen),
      seat_(globals_->Seat()),
      event_type_(SDL_RegisterEvents(1)) {
  if (seat_) ListenToSeat();
}

void WaylandMouse::ListenToSeat() {
  static const wl_seat_listener kListener{[](void* self, wl_seat*, std::uint32_t capabilities) {
                                            const bool pointer =
                                                (capabilities & WL_SEAT_CAPABILITY_POINTER) != 0;
                                            if (!pointer) As(self).pointer_.reset();
                                            if (pointer && !As(self).pointer_) As(self).ListenToPointer();
                                          },
                                          [](void*, wl_seat*, const char*) {}};
  wl_seat_add_listener(seat_.get(), &kListener, this);
  wl_display_roundtrip(globals_->display);
}

void WaylandMouse::ListenToPointer() {
  static const wl_pointer_listener kListener = [] {
    wl_pointer_listener listener{};
    listener.enter = [](void* self, wl_pointer*, std::uint32_t, wl_surface* surface, wl_fixed_t x,
                        wl_fixed_t y) {
      As(self).over_window_ = surface == As(self).surface_;
      if (As(self).over_window_) As(self).MovedTo(PlaceOf(x, y));
    };
    listener.leave = [](void* self, wl_pointer*, std::uint32_t, wl_surface*) {
      As(self).over_window_ = false;
    };
    listener.motion = [](void* self, wl_pointer*, std::uint32_t, wl_fixed_t x, wl_fixed_t y) {
      if (As(self).over_window_) As(self).MovedTo(PlaceOf(x, y));
    };
    listener.button = [](void* self, wl_pointer*, std::uint32_t, std::uint32_t, std::uint32_t button,
                         std::uint32_t state) {
      if (button < BTN_LEFT || button > BTN_MIDDLE) return;
      const bool pressed = state == WL_POINTER_BUTTON_STATE_PRESSED;
      if (As(self).over_window_) As(self).Pressed(1 << (button - BTN_LEFT), pressed);
    };
    listener.axis = [](void*, wl_pointer*, std::uint32_t, std::uint32_t, wl_fixed_t) {};
    return listener;
  }();
  pointer_.reset(wl_seat_get_pointer(seat_.get()));
  wl_pointer_add_listener(pointer_.get(), &kListener, this);
}

void WaylandMouse::Tell(Event event) {
  told_.push_back(std::move(event));
  SDL_Event token{};
  token.user.type = event_type_;
  SDL_PushEvent(&token);
}

void WaylandMouse::MovedTo(PixelPlace points) {
  // The compositor keeps places in 256ths of a point.
  constexpr Double kHair = 1.0 / 128;
  if (std::abs(points.x - place_.x) < kHair && std::abs(points.y - place_.y) < kHair) return;
  place_ = points;
  const Double scale = screen_.Scale();
  Tell(PointerMoved{points.x * scale, points.y * scale, ShiftOf(SDL_GetModState())});
}

// The system's buttons are numbered left, right, middle, as the bits of Button are.
void WaylandMouse::Pressed(int button, bool down) {
  const int shift = ShiftOf(SDL_GetModState());
  if (down) return Tell(PointerPressed{button, shift});
  Tell(PointerReleased{button, shift});
}

std::optional<Event> WaylandMouse::Translate(const SDL_Event& event) {
  if (event.type == event_type_ && !told_.empty()) {
    const Event told = std::move(told_.front());
    told_.pop_front();
    return told;
  }
  // A finger on the display is a mouse of SDL's.
  if (event.type == SDL_MOUSEMOTION && event.motion.which == SDL_TOUCH_MOUSEID) {
    place_ = {Double(event.motion.x), Double(event.motion.y)};
    return PointerMoved{place_.x * screen_.Scale(), place_.y * screen_.Scale()};
  }
  return event.button.which == SDL_TOUCH_MOUSEID ? ButtonEvent(event) : std::nullopt;
}

PixelPoint WaylandMouse::Place() {
  const Double scale = screen_.Scale();
  return {static_cast<int>(std::lround(place_.x * scale)), static_cast<int>(std::lround(place_.y * scale))};
}

void WaylandMouse::Move(PixelPoint place) {
  const Double scale = screen_.Scale();
  place_ = {place.x / scale, place.y / scale};
  if (over_window_ && globals_->pointer_constraints) Warp(place_);
  Tell(PointerMoved{Double(place.x), Double(place.y)});
}

/// A pointer that is locked may say where it wants to be when it comes free.
void WaylandMouse::Warp(PixelPlace points) {
  const SDL_bool confined = SDL_GetWindowMouseGrab(window_);
  SDL_SetWindowMouseGrab(window_, SDL_FALSE);
  Wayland<zwp_locked_pointer_v1> lock(
      zwp_pointer_constraints_v1_lock_pointer(globals_->pointer_constraints.get(), surface_, pointer_.get(),
                                              nullptr, ZWP_POINTER_CONSTRAINTS_V1_LIFETIME_PERSISTENT));
  zwp_locked_pointer_v1_set_cursor_position_hint(lock.get(), wl_fixed_from_double(points.x),
                                                 wl_fixed_from_double(points.y));
  wl_surface_commit(surface_);
  wl_display_roundtrip(globals_->display);
  lock.reset();
  SDL_SetWindowMouseGrab(window_, confined);
}

}  // namespace stage::sdl
