#include "stage/sdl/sdl_platform.h"

#include <SDL.h>
#include <poll.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <memory>
#include <thread>
#include <vector>

#include "stage/sdl/beside.h"
#include "stage/sdl/connection.h"
#include "stage/sdl/keys.h"

namespace stage::sdl {
namespace {

constexpr Moment kPollInterval = std::chrono::milliseconds(2);
constexpr auto kPatience = std::chrono::seconds(3);  // at the end, with a disk that is slow

std::string TakeString(char* text) {
  const std::unique_ptr<char, decltype(&SDL_free)> owned(text, SDL_free);
  return owned ? std::string(owned.get()) : std::string();
}

/// With SDL's reason, if it has one.
NoDisplay Refusal(const std::string& what) {
  const std::string why = SDL_GetError();
  return NoDisplay(why.empty() ? what : what + ": " + why);
}

bool IsMove(const Event& event) { return std::holds_alternative<PointerMoved>(event); }

int Rounded(Double value) { return static_cast<int>(std::lround(value)); }

}  // namespace

SdlPlatform::Session::Session() {
  SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
  SDL_SetHint(SDL_HINT_VIDEO_MINIMIZE_ON_FOCUS_LOSS, "0");
  SDL_SetHint(SDL_HINT_QUIT_ON_LAST_WINDOW_CLOSE, "0");  // closing is for the active form
  SDL_SetHint(SDL_HINT_VIDEO_X11_NET_WM_BYPASS_COMPOSITOR, "0");
  // Left to itself SDL falls back on a picture that nobody sees; and asking for Wayland where there is none
  // makes its library complain.
  const char* const wayland_display = SDL_getenv("WAYLAND_DISPLAY");
  const bool wayland = wayland_display != nullptr && *wayland_display != '\0';
  SDL_SetHint(SDL_HINT_VIDEODRIVER, wayland ? "x11,wayland,KMSDRM" : "x11,KMSDRM");
  if (SDL_Init(SDL_INIT_VIDEO) != 0) throw Refusal("no display to play on");
}

SdlPlatform::Session::~Session() {
  if (!left_open_) SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

void SdlPlatform::DestroyWindow::operator()(SDL_Window* window) const { SDL_DestroyWindow(window); }

SdlPlatform::SdlPlatform(const char* title, const char* name)
    : folders_(FindProgramFolders(TakeString(SDL_GetBasePath()), name, DataHome())) {
  SDL_Rect area{0, 0, 800, 600};
  SDL_GetDisplayBounds(0, &area);
  window_.reset(SDL_CreateWindow(title, SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, area.w, area.h,
                                 SDL_WINDOW_FULLSCREEN_DESKTOP | SDL_WINDOW_BORDERLESS |
                                     SDL_WINDOW_ALLOW_HIGHDPI | SDL_WINDOW_MOUSE_GRABBED));
  if (!window_) throw Refusal("no window on this display");
  const SDL_Surface* const surface = SDL_GetWindowSurface(window_.get());
  if (surface == nullptr) throw Refusal("no picture on this display");
  if (surface->format->BytesPerPixel != sizeof(Pixel)) throw NoDisplay("the display has too few colours");
  connection_ = Connection(window_.get());
  voice_.emplace();
}

SdlPlatform::~SdlPlatform() {
  if (work_.valid()) work_.wait_for(kPatience);
  if (!voice_->Close()) session_.LeaveOpen();
}

PixelSize SdlPlatform::DisplaySize() {
  PixelSize size;
  SDL_GetWindowSizeInPixels(window_.get(), &size.width, &size.height);
  return size;
}

std::optional<Framebuffer> SdlPlatform::Canvas() {
  const SDL_Surface* const surface = SDL_GetWindowSurface(window_.get());
  if (surface == nullptr) return std::nullopt;
  return Framebuffer{{surface->w, surface->h},
                     static_cast<Pixel*>(surface->pixels),
                     surface->pitch / static_cast<int>(sizeof(Pixel))};
}

int SdlPlatform::RefreshRate() {
  constexpr int kUsual = 60;
  constexpr int kLeast = 30;
  constexpr int kMost = 500;
  SDL_DisplayMode mode{};
  const int display = SDL_GetWindowDisplayIndex(window_.get());
  if (SDL_GetCurrentDisplayMode(display, &mode) != 0 || mode.refresh_rate == 0) return kUsual;
  return std::clamp(mode.refresh_rate, kLeast, kMost);
}

void SdlPlatform::Present(std::span<const PixelRect> changed) {
  std::vector<SDL_Rect> rects;
  for (const PixelRect& rect : changed) rects.push_back({rect.left, rect.top, rect.Width(), rect.Height()});
  SDL_UpdateWindowSurfaceRects(window_.get(), rects.data(), static_cast<int>(rects.size()));
}

void SdlPlatform::Poll() {
  polled_ = Now();
  SDL_PumpEvents();
  SDL_Event event;
  while (SDL_PeepEvents(&event, 1, SDL_GETEVENT, SDL_FIRSTEVENT, SDL_LASTEVENT) > 0) {
    auto translated = Translate(event);
    if (!translated) continue;
    // Of a run of moves only the last place counts.
    if (IsMove(*translated) && !events_.empty() && IsMove(events_.back())) events_.pop_back();
    events_.push_back(*std::move(translated));
  }
}

std::optional<Event> SdlPlatform::NextEvent() {
  // A beat asks many times over whether something is waiting; the system is asked only now and then.
  if (events_.empty() && Now() - polled_ > kPollInterval) Poll();
  if (events_.empty()) return std::nullopt;
  Event next = std::move(events_.front());
  events_.pop_front();
  return next;
}

SdlPlatform::Scale SdlPlatform::PixelsOfAPoint() {
  PixelSize points{1, 1};
  SDL_GetWindowSize(window_.get(), &points.width, &points.height);
  const PixelSize pixels = DisplaySize();
  return {Double(pixels.width) / points.width, Double(pixels.height) / points.height};
}

std::optional<Event> SdlPlatform::Translate(const SDL_Event& event) {
  const auto place = [this](int x, int y) {
    const Scale scale = PixelsOfAPoint();
    return PointerMoved{x * scale.x, y * scale.y};
  };
  switch (event.type) {
    case SDL_QUIT:
      return QuitAsked{};
    case SDL_MOUSEMOTION:
      return place(event.motion.x, event.motion.y);
    case SDL_MOUSEBUTTONDOWN:
      if (event.button.button == SDL_BUTTON_LEFT) return PointerPressed{};
      return std::nullopt;
    case SDL_KEYDOWN:
      return KeyPressed{CodeOf(event.key.keysym), ShiftOf(event.key.keysym.mod)};
    case SDL_KEYUP:
      return KeyReleased{CodeOf(event.key.keysym), ShiftOf(event.key.keysym.mod)};
    case SDL_TEXTINPUT:
      return TextTyped{event.text.text};
    case SDL_WINDOWEVENT:
      if (event.window.event == SDL_WINDOWEVENT_CLOSE) return CloseAsked{};
      if (event.window.event == SDL_WINDOWEVENT_EXPOSED ||
          event.window.event == SDL_WINDOWEVENT_SIZE_CHANGED) {
        return DisplayChanged{};
      }
      return std::nullopt;
    default:
      return std::nullopt;
  }
}

Moment SdlPlatform::Now() {
  return std::chrono::duration_cast<Moment>(std::chrono::steady_clock::now() - start_);
}

void SdlPlatform::Wait(Moment until, Wake wake) {
  if (wake == Wake::kOnTime) {
    std::this_thread::sleep_until(start_ + until);
    return;
  }
  while (events_.empty()) {
    const Moment left = until - Now();
    if (left <= Moment{0}) return;
    if (InputComes(left)) Poll();
  }
}

bool SdlPlatform::InputComes(Moment longest) const {
  if (connection_ < 0) {
    const auto rounded = std::chrono::ceil<std::chrono::milliseconds>(longest);
    return SDL_WaitEventTimeout(nullptr, static_cast<int>(rounded.count())) != 0;
  }
  if (InputWaits(window_.get())) return true;
  // SDL waits for whole milliseconds only, and asks the display server many times over.
  const auto seconds = std::chrono::floor<std::chrono::seconds>(longest);
  const std::chrono::nanoseconds rest = longest - seconds;
  const timespec time{static_cast<std::time_t>(seconds.count()), static_cast<long>(rest.count())};
  pollfd line{connection_, POLLIN, 0};
  return ppoll(&line, 1, &time, nullptr) != 0;
}

Double SdlPlatform::SecondsOfDay() {
  using std::chrono::system_clock;
  const auto now = system_clock::now();
  const std::time_t seconds = system_clock::to_time_t(now);
  std::tm local{};
  localtime_r(&seconds, &local);
  const std::chrono::duration<Double> part = now - std::chrono::floor<std::chrono::seconds>(now);
  return local.tm_hour * 3600.0 + local.tm_min * 60.0 + local.tm_sec + part.count();
}

void SdlPlatform::ShowPointer(bool shown) { SDL_ShowCursor(shown ? SDL_ENABLE : SDL_DISABLE); }

PixelPoint SdlPlatform::PointerPlace() {
  PixelPoint place;
  SDL_GetMouseState(&place.x, &place.y);
  const Scale scale = PixelsOfAPoint();
  return {Rounded(place.x * scale.x), Rounded(place.y * scale.y)};
}

void SdlPlatform::MovePointer(PixelPoint place) {
  const Scale scale = PixelsOfAPoint();
  SDL_WarpMouseInWindow(window_.get(), Rounded(place.x / scale.x), Rounded(place.y / scale.y));
  Poll();
  const auto last = std::find_if(events_.rbegin(), events_.rend(), IsMove);
  if (last == events_.rend()) return;
  events_.erase(std::remove_if(events_.begin(), std::next(last).base(), IsMove), std::next(last).base());
}

void SdlPlatform::Beside(std::function<void()> work) {
  const auto in_turn = [before = work_, work = std::move(work)] {
    if (before.valid()) before.wait();
    work();
  };
  try {
    work_ = sdl::Beside(in_turn);
  } catch (const std::system_error&) {
    in_turn();
  }
}

std::string SdlPlatform::Clipboard() { return TakeString(SDL_GetClipboardText()); }

}  // namespace stage::sdl
