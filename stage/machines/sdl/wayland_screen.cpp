#include "stage/machines/sdl/wayland_screen.h"

#include <SDL_events.h>
#include <fractional-scale-v1.h>
#include <viewporter.h>
#include <wayland-client.h>

#include <algorithm>
#include <cmath>

#include "stage/machines/sdl/wayland_line.h"

namespace stage::sdl {
namespace {

constexpr std::size_t kMostBuffers = 3;
constexpr int kPartsOfScale = 120;  // in which a scale is told that is no whole number
constexpr int kUsualRefresh = 60000;

template <class Self>
Self& As(void* self) {
  return *static_cast<Self*>(self);
}

PixelSize Scaled(PixelSize points, Double scale) {
  return {static_cast<int>(std::lround(points.width * scale)),
          static_cast<int>(std::lround(points.height * scale))};
}

/// The pixels of a window that fills its display, of which only the scale rounded up is told; nothing if it
/// does not fill it.
std::optional<PixelSize> PixelsOn(const WaylandOutput& output, PixelSize points) {
  const PixelSize all = output.Pixels();
  const auto is_scale = [&](Double scale) { return scale > output.scale - 1 && scale <= output.scale; };
  const bool even = std::int64_t{all.width} * points.height == std::int64_t{all.height} * points.width;
  if (even && is_scale(Double(all.width) / points.width)) return all;
  // There is no part of a point; the pixels left over at the far edges are not the window's.
  const Double quarters = std::round(4.0 * all.width / points.width) / 4;
  const auto fills = [&](int pixels, int of_points) { return std::abs(pixels / quarters - of_points) < 1; };
  if (!is_scale(quarters) || !fills(all.width, points.width) || !fills(all.height, points.height))
    return std::nullopt;
  return Scaled(points, quarters);
}

}  // namespace

WaylandScreen::WaylandScreen(SDL_Window* window, wl_surface* surface, std::shared_ptr<WaylandGlobals> globals)
    : window_(window),
      ground_surface_(surface),
      globals_(std::move(globals)),
      surface_(wl_compositor_create_surface(globals_->compositor.get())),
      subsurface_(wl_subcompositor_get_subsurface(globals_->subcompositor.get(), surface_.get(), surface)) {
  wl_subsurface_set_desync(subsurface_.get());
  // The pointer is heard of by the surface below.
  wl_region* const nowhere = wl_compositor_create_region(globals_->compositor.get());
  wl_surface_set_input_region(surface_.get(), nowhere);
  wl_region_destroy(nowhere);
  if (globals_->viewporter) {
    viewport_.reset(wp_viewporter_get_viewport(globals_->viewporter.get(), surface_.get()));
  }
  Listen();
  WaylandScreen::Refit();
  if (globals_->outputs.size() > 1) WaitForOutput();
  globals_->OutputsChanged = [this] { Refit(); };
}

WaylandScreen::~WaylandScreen() {
  globals_->OutputsChanged = [] {};
}

void WaylandScreen::Listen() {
  static const wl_surface_listener kSurface = [] {
    wl_surface_listener listener{};
    listener.enter = [](void* self, wl_surface*, wl_output* output) {
      As<WaylandScreen>(self).entered_ = output;
      As<WaylandScreen>(self).Refit();
    };
    listener.leave = [](void*, wl_surface*, wl_output*) {};
    return listener;
  }();
  wl_surface_add_listener(surface_.get(), &kSurface, this);
  if (!globals_->fractional_scales || !viewport_) return;
  static const wp_fractional_scale_v1_listener kScale{
      [](void* self, wp_fractional_scale_v1*, std::uint32_t scale) {
        As<WaylandScreen>(self).preferred_scale_ = static_cast<int>(scale);
        As<WaylandScreen>(self).Refit();
      }};
  fractional_scale_.reset(
      wp_fractional_scale_manager_v1_get_fractional_scale(globals_->fractional_scales.get(), surface_.get()));
  wp_fractional_scale_v1_add_listener(fractional_scale_.get(), &kScale, this);
}

/// A first picture, black, has to be shown before the compositor tells where it is seen.
void WaylandScreen::WaitForOutput() {
  constexpr auto kPatience = std::chrono::milliseconds(200);
  if (WaylandScreen::Canvas()) WaylandScreen::Present({});
  const auto end = Clock::now() + kPatience;
  for (auto now = Clock::now(); entered_ == nullptr && now < end; now = Clock::now()) {
    if (WaylandLine(globals_->display).InputComes(std::chrono::duration_cast<Moment>(end - now))) {
      wl_display_roundtrip(globals_->display);
    }
  }
}

const WaylandOutput* WaylandScreen::Output() const {
  const auto is_entered = [&](const WaylandOutput& output) { return output.output.get() == entered_; };
  const auto entered = std::ranges::find_if(globals_->outputs, is_entered);
  if (entered != globals_->outputs.end()) return &*entered;
  return globals_->outputs.empty() ? nullptr : &globals_->outputs.front();
}

PixelSize WaylandScreen::PixelsFor(PixelSize points) const {
  const WaylandOutput* const output = Output();
  const int whole = output == nullptr ? 1 : output->scale;
  if (!viewport_) return Scaled(points, whole);
  if (preferred_scale_ > 0) return Scaled(points, Double(preferred_scale_) / kPartsOfScale);
  return output == nullptr ? points : PixelsOn(*output, points).value_or(Scaled(points, whole));
}

void WaylandScreen::Refit() {
  PixelSize points;
  SDL_GetWindowSize(window_, &points.width, &points.height);
  const PixelSize pixels = PixelsFor(points);
  if (points == points_ && pixels == pixels_) return;
  const bool moved = points != points_;
  points_ = points;
  pixels_ = pixels;
  if (viewport_) {
    wp_viewport_set_destination(viewport_.get(), points.width, points.height);
  } else {
    wl_surface_set_buffer_scale(surface_.get(), pixels.width / points.width);
  }
  last_ = next_ = nullptr;
  if (moved) LayGround();
  TellOfChange();
}

/// A window is only there with something on it, which has to be as large as the window is.
void WaylandScreen::LayGround() {
  ground_ = std::make_unique<WaylandBuffer>(globals_->shm.get(), points_);
  wl_surface_attach(ground_surface_, ground_->Handle(), 0, 0);
  wl_surface_damage_buffer(ground_surface_, 0, 0, points_.width, points_.height);
  wl_surface_commit(ground_surface_);
}

WaylandBuffer* WaylandScreen::FreeBuffer() {
  std::erase_if(buffers_, [&](const auto& buffer) { return !buffer->busy && buffer->Size() != pixels_; });
  const auto free = std::ranges::find_if(buffers_, [](const auto& buffer) { return !buffer->busy; });
  if (free != buffers_.end()) return free->get();
  if (buffers_.size() >= kMostBuffers) return nullptr;
  buffers_.push_back(std::make_unique<WaylandBuffer>(globals_->shm.get(), pixels_));
  buffers_.back()->missed.Add({0, 0, pixels_.width, pixels_.height});
  return buffers_.back().get();
}

std::optional<Framebuffer> WaylandScreen::Canvas() {
  if (next_ == nullptr) {
    next_ = FreeBuffer();
    starved_ = next_ == nullptr;
    if (starved_) return std::nullopt;
    if (last_ != nullptr) next_->BringLevel(*last_);
  }
  return next_->Pixels();
}

void WaylandScreen::Present(std::span<const PixelRect> changed) {
  wl_surface_attach(surface_.get(), next_->Handle(), 0, 0);
  for (const PixelRect& rect : changed) {
    wl_surface_damage_buffer(surface_.get(), rect.left, rect.top, rect.Width(), rect.Height());
    for (const auto& buffer : buffers_) {
      if (buffer.get() != next_) buffer->missed.Add(rect);
    }
  }
  AskForFrame();
  wl_surface_commit(surface_.get());
  wl_display_flush(globals_->display);
  next_->busy = true;
  last_ = std::exchange(next_, nullptr);
}

void WaylandScreen::AskForFrame() {
  if (frame_) return;
  static const wl_callback_listener kListener{[](void* self, wl_callback*, std::uint32_t) {
    auto& it = As<WaylandScreen>(self);
    it.frame_.reset();
    it.last_frame_ = Clock::now();
    it.frame_came_ = true;
    if (it.starved_) it.TellOfChange();
  }};
  frame_.reset(wl_surface_frame(surface_.get()));
  wl_callback_add_listener(frame_.get(), &kListener, this);
}

std::optional<Screen::Clock::time_point> WaylandScreen::LastFrame() {
  if (!last_frame_) return std::nullopt;
  // The display goes on taking pictures while none of them is ours.
  const WaylandOutput* const output = Output();
  const int rate = output == nullptr || output->refresh == 0 ? kUsualRefresh : output->refresh;
  const std::chrono::nanoseconds frame = std::chrono::nanoseconds(std::chrono::seconds(1000)) / rate;
  return *last_frame_ + (Clock::now() - *last_frame_) / frame * frame;
}

void WaylandScreen::TellOfChange() {
  SDL_Event event{};
  event.window.type = SDL_WINDOWEVENT;
  event.window.event = SDL_WINDOWEVENT_EXPOSED;
  event.window.windowID = SDL_GetWindowID(window_);
  SDL_PushEvent(&event);
}

}  // namespace stage::sdl
