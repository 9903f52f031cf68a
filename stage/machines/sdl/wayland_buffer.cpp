#include "stage/machines/sdl/wayland_buffer.h"

#include <sys/mman.h>
#include <unistd.h>
#include <wayland-client.h>

#include <algorithm>

#include "stage/machines/sdl/no_display.h"

namespace stage::sdl {
namespace {

/// A file in memory alone, closed at the end of its life.
class MemoryFile {
 public:
  MemoryFile() : number_(memfd_create("korvane", MFD_CLOEXEC)) {}
  ~MemoryFile() {
    if (number_ >= 0) close(number_);
  }
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  /// Its bytes where the program can write them; null if there is no memory.
  Pixel* Map(std::size_t bytes) const {
    if (ftruncate(number_, static_cast<off_t>(bytes)) != 0) return nullptr;
    void* const mapped = mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_SHARED, number_, 0);
    return mapped == MAP_FAILED ? nullptr : static_cast<Pixel*>(mapped);
  }
  int Number() const { return number_; }

 private:
  int number_;
};

}  // namespace

WaylandBuffer::WaylandBuffer(wl_shm* shm, PixelSize size)
    : size_(size), bytes_(std::size_t(size.width) * std::size_t(size.height) * sizeof(Pixel)) {
  const MemoryFile file;
  pixels_ = file.Map(bytes_);
  if (pixels_ == nullptr) throw NoDisplay("no memory for a picture");
  wl_shm_pool* const pool = wl_shm_create_pool(shm, file.Number(), static_cast<int>(bytes_));
  buffer_.reset(wl_shm_pool_create_buffer(pool, 0, size.width, size.height,
                                          size.width * static_cast<int>(sizeof(Pixel)),
                                          WL_SHM_FORMAT_XRGB8888));
  wl_shm_pool_destroy(pool);
  static const wl_buffer_listener kListener{
      [](void* self, wl_buffer*) { static_cast<WaylandBuffer*>(self)->busy = false; }};
  wl_buffer_add_listener(buffer_.get(), &kListener, this);
}

WaylandBuffer::~WaylandBuffer() { munmap(pixels_, bytes_); }

void WaylandBuffer::BringLevel(const WaylandBuffer& last) {
  for (const PixelRect& rect : missed.Rects()) {
    for (int y = rect.top; y < rect.bottom; ++y) {
      std::copy_n(last.Pixels().Row(y) + rect.left, rect.Width(), Pixels().Row(y) + rect.left);
    }
  }
  missed.Clear();
}

}  // namespace stage::sdl
