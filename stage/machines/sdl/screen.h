// What the window is painted on.
#pragma once

#include <chrono>
#include <optional>
#include <span>

#include "stage/painting/bitmap.h"

namespace stage::sdl {

class Screen {
 public:
  using Clock = std::chrono::steady_clock;

  Screen() = default;
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;
  virtual ~Screen() = default;

  /// Pixels of the display under the window.
  virtual PixelSize Size() = 0;
  /// What the next picture is painted in, with the last one in it. Nothing while none can be shown.
  virtual std::optional<Framebuffer> Canvas() = 0;
  /// Shows the canvas, which differs from the last picture in these rectangles.
  virtual void Present(std::span<const PixelRect> changed) = 0;
  /// When the display last took a picture, if that is known.
  virtual std::optional<Clock::time_point> LastFrame() { return std::nullopt; }
  /// Whether the display has taken one since the last call.
  virtual bool TookFrame() { return false; }
  /// The window's size has changed.
  virtual void Refit() {}
};

}  // namespace stage::sdl
