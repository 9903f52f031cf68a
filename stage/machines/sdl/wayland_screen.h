// A window on Wayland, painted with the display's own pixels whatever its scale, only as far as it changes.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "stage/machines/sdl/screen.h"
#include "stage/machines/sdl/wayland_buffer.h"
#include "stage/machines/sdl/wayland_globals.h"

struct SDL_Window;

namespace stage::sdl {

/// The picture lies on a surface of its own over that of SDL's window, since SDL calls all of its own changed
/// at every frame and knows no scale between whole numbers. It takes turns in two buffers, or three if the
/// compositor is slow to give one back.
class WaylandScreen : public Screen {
 public:
  /// `surface` is that of the window, which has to outlive the screen. Raises NoDisplay.
  WaylandScreen(SDL_Window* window, wl_surface* surface, std::shared_ptr<WaylandGlobals> globals);
  ~WaylandScreen() override;

  PixelSize Size() override { return pixels_; }
  std::optional<Framebuffer> Canvas() override;
  void Present(std::span<const PixelRect> changed) override;
  std::optional<Clock::time_point> LastFrame() override;
  bool TookFrame() override { return std::exchange(frame_came_, false); }
  void Refit() override;

  /// Pixels of a point; the window and the pointer are measured in points.
  Double Scale() const { return Double(pixels_.width) / points_.width; }

 private:
  void Listen();
  void WaitForOutput();
  const WaylandOutput* Output() const;
  PixelSize PixelsFor(PixelSize points) const;
  void LayGround();
  WaylandBuffer* FreeBuffer();
  void AskForFrame();
  /// The picture has to be painted again, or in another size.
  void TellOfChange();

  SDL_Window* window_;
  wl_surface* ground_surface_;
  std::shared_ptr<WaylandGlobals> globals_;
  Wayland<wl_surface> surface_;
  Wayland<wl_subsurface> subsurface_;
  Wayland<wp_viewport> viewport_;
  Wayland<wp_fractional_scale_v1> fractional_scale_;
  Wayland<wl_callback> frame_;
  wl_output* entered_ = nullptr;
  int preferred_scale_ = 0;  // in 120ths; 0 if not told

  PixelSize points_;
  PixelSize pixels_;
  std::unique_ptr<WaylandBuffer> ground_;
  std::vector<std::unique_ptr<WaylandBuffer>> buffers_;
  WaylandBuffer* last_ = nullptr;  // shows the last picture
  WaylandBuffer* next_ = nullptr;  // is painted for the next
  bool starved_ = false;           // no buffer was free when one was wanted
  std::optional<Clock::time_point> last_frame_;
  bool frame_came_ = false;
};

}  // namespace stage::sdl
