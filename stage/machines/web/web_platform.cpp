#include "stage/machines/web/web_platform.h"

#include <array>

#include "stage/machines/web/page.h"

namespace stage::web {
namespace {

constexpr Double kMicroseconds = 1000;  // in a millisecond

Moment MomentOf(double page_time) { return Moment(static_cast<std::int64_t>(page_time * kMicroseconds)); }

/// Red in the low byte, and opaque.
std::uint32_t Shown(Pixel pixel) {
  return 0xFF000000U | (pixel & 0xFFU) << 16 | (pixel & 0xFF00U) | (pixel >> 16 & 0xFFU);
}

}  // namespace

WebPlatform::~WebPlatform() { page_close(); }

PixelSize WebPlatform::DisplaySize() { return {page_width(), page_height()}; }

std::optional<Framebuffer> WebPlatform::Canvas() {
  const PixelSize size = DisplaySize();
  if (size != size_) {
    size_ = size;
    pixels_.assign(std::size_t(size.width) * std::size_t(size.height), 0);
    shown_.assign(pixels_.size(), Shown(0));
  }
  return Framebuffer{size_, pixels_.data(), size_.width};
}

int WebPlatform::RefreshRate() { return page_refresh_rate(); }

std::optional<Moment> WebPlatform::LastFrame() {
  const double last = page_last_frame();
  return last < 0 ? std::nullopt : std::optional(MomentOf(last));
}

bool WebPlatform::WantsStillness() { return page_wants_stillness(); }

void WebPlatform::Present(std::span<const PixelRect> changed) {
  for (const PixelRect& rect : changed) {
    for (int y = rect.top; y < rect.bottom; ++y) {
      const std::size_t row = std::size_t(y) * std::size_t(size_.width);
      for (int x = rect.left; x < rect.right; ++x)
        shown_[row + std::size_t(x)] = Shown(pixels_[row + std::size_t(x)]);
    }
    page_present(shown_.data(), size_.width, size_.height, rect.left, rect.top, rect.right, rect.bottom);
  }
}

std::optional<Event> WebPlatform::NextEvent() {
  PageEvent event{};
  page_next_event(&event);
  switch (event.kind) {
    case PageEvent::kMoved:
      return PointerMoved{event.x, event.y, event.shift};
    case PageEvent::kPressed:
      return PointerPressed{event.code, event.shift};
    case PageEvent::kReleased:
      return PointerReleased{event.code, event.shift};
    case PageEvent::kWheel:
      return WheelTurned{event.code, event.shift};
    case PageEvent::kKeyDown:
      return KeyPressed{event.code, event.shift};
    case PageEvent::kKeyUp:
      return KeyReleased{event.code, event.shift};
    case PageEvent::kTyped:
      return TextTyped{event.text};
    case PageEvent::kDisplay:
      return DisplayChanged{};
    default:
      return std::nullopt;
  }
}

void WebPlatform::Wait(Moment until, Wake wake) {
  page_wait(Double(until.count()) / kMicroseconds, wake == Wake::kOnInput);
}

Moment WebPlatform::Now() { return MomentOf(page_now()); }

Double WebPlatform::SecondsOfDay() { return page_seconds_of_day(); }

void WebPlatform::ShowPointer(bool shown) { page_show_pointer(shown); }

PixelPoint WebPlatform::PointerPlace() { return {page_pointer_x(), page_pointer_y()}; }

void WebPlatform::PlaySound(const std::filesystem::path& file) { page_play(file.c_str()); }

void WebPlatform::SetClipboard(const std::string& text) { page_set_clipboard(text.c_str()); }

std::string WebPlatform::Address() {
  constexpr int kMost = 2048;
  std::array<char, kMost> address{};
  page_address(address.data(), kMost);
  return address.data();
}

void WebPlatform::TextWanted(bool wanted) { page_want_text(wanted); }

}  // namespace stage::web

std::unique_ptr<stage::Platform> stage::MakePlatform(const char* /*title*/, const char* name) {
  return std::make_unique<web::WebPlatform>(name);
}
