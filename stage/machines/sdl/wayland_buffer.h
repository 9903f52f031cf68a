// Pixels that the program paints and the compositor reads.
#pragma once

#include <cstddef>

#include "stage/machines/sdl/wayland_objects.h"
#include "stage/painting/bitmap.h"
#include "stage/painting/region.h"

namespace stage::sdl {

class WaylandBuffer {
 public:
  /// Black. Raises NoDisplay if there is no memory.
  WaylandBuffer(wl_shm* shm, PixelSize size);
  ~WaylandBuffer();
  WaylandBuffer(const WaylandBuffer&) = delete;
  WaylandBuffer& operator=(const WaylandBuffer&) = delete;

  wl_buffer* Handle() const { return buffer_.get(); }
  Framebuffer Pixels() const { return {size_, pixels_, size_.width}; }
  PixelSize Size() const { return size_; }
  /// Copies what it has missed from the buffer that shows the last picture.
  void BringLevel(const WaylandBuffer& last);

  bool busy = false;  // the compositor reads it
  Region missed;      // what has been painted into other buffers since

 private:
  PixelSize size_;
  std::size_t bytes_;
  Pixel* pixels_;
  Wayland<wl_buffer> buffer_;
};

}  // namespace stage::sdl
