// The pointer on Wayland: its place to a part of a point, and a way to put it somewhere.
#pragma once

#include <deque>
#include <memory>

#include "stage/machines/sdl/mouse.h"
#include "stage/machines/sdl/wayland_globals.h"
#include "stage/machines/sdl/wayland_screen.h"

struct SDL_Window;

namespace stage::sdl {

/// SDL tells the pointer's place in whole points, which may be several pixels, and cannot put it anywhere
/// without locking it for good. Keys still come by SDL, so what is heard here goes through its queue, to keep
/// its turn among them.
class WaylandMouse : public Mouse {
 public:
  /// `surface` is that of the window; window and screen have to outlive the mouse.
  WaylandMouse(SDL_Window* window, wl_surface* surface, std::shared_ptr<const WaylandGlobals> globals,
               const WaylandScreen& screen);

  std::optional<Event> Translate(const SDL_Event& event) override;
  PixelPoint Place() override;
  void Move(PixelPoint place) override;

 private:
  void ListenToSeat();
  void ListenToPointer();
  void Tell(Event event);
  void MovedTo(PixelPlace points);
  void Pressed(int button, bool down);
  void Warp(PixelPlace points);

  SDL_Window* window_;
  wl_surface* surface_;
  std::shared_ptr<const WaylandGlobals> globals_;
  const WaylandScreen& screen_;
  Wayland<wl_seat> seat_;
  Wayland<wl_pointer> pointer_;
  bool over_window_ = false;
  PixelPlace place_;  // in points
  std::deque<Event> told_;
  std::uint32_t event_type_;
};

}  // namespace stage::sdl
