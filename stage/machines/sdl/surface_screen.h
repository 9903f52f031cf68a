// A window whose pixels SDL copies to the display server: X11, and whatever else SDL knows.
#pragma once

#include "stage/machines/sdl/screen.h"

struct SDL_Window;

namespace stage::sdl {

class SurfaceScreen : public Screen {
 public:
  /// Raises NoDisplay if the window cannot show a picture. It has to outlive the screen.
  explicit SurfaceScreen(SDL_Window* window);

  PixelSize Size() override;
  std::optional<Framebuffer> Canvas() override;
  void Present(std::span<const PixelRect> changed) override;

 private:
  SDL_Window* window_;
};

}  // namespace stage::sdl
