#include "stage/machines/sdl/sdl_platform.h"

#include <SDL.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <system_error>

#include "stage/machines/machine.h"
#include "stage/machines/sdl/beside.h"
#include "stage/machines/sdl/keys.h"

namespace stage::sdl {
namespace {

constexpr Moment kPollInterval = std::chrono::milliseconds(2);
constexpr auto kPatience = std::chrono::seconds(3);  // at the end, with a disk that is slow

std::string TakeString(char* text) {
  const std::unique_ptr<char, decltype(&SDL_free)> owned(text, SDL_free);
  return owned ? std::string(owned.get()) : std::string();
}

/// Away from the player, also where the system turns the wheel's sense around.
int StepsOf(const SDL_MouseWheelEvent& wheel) {
  return wheel.direction == SDL_MOUSEWHEEL_FLIPPED ? -wheel.y : wheel.y;
}

bool IsMove(const Event& event) { return std::holds_alternative<PointerMoved>(event); }

}  // namespace

SdlPlatform::Session::Session() {
  SDL_SetHint(SDL_HINT_FRAMEBUFFER_ACCELERATION, "0");
  SDL_SetHint(SDL_HINT_VIDEO_MINIMIZE_ON_FOCUS_LOSS, "0");
  SDL_SetHint(SDL_HINT_QUIT_ON_LAST_WINDOW_CLOSE, "0");  // closing is for the active form
  ChooseDisplay();
  SDL_SetMainReady();  // the program's main is its own
  if (SDL_Init(SDL_INIT_VIDEO) != 0) throw Refusal("no display to play on");
  SDL_StopTextInput();
}

SdlPlatform::Session::~Session() {
  if (!left_open_) SDL_QuitSubSystem(SDL_INIT_VIDEO);
}

void SdlPlatform::DestroyWindow::operator()(SDL_Window* window) const { SDL_DestroyWindow(window); }

SdlPlatform::SdlPlatform(const char* title, const char* name)
    : folders_(FindProgramFolders(machine::OwnFolder(), name, machine::DataHome())) {
  SDL_Rect area{0, 0, 800, 600};
  SDL_GetDisplayBounds(0, &area);
  const Uint32 flags = SDL_WINDOW_FULLSCREEN_DESKTOP | SDL_WINDOW_BORDERLESS | SDL_WINDOW_MOUSE_GRABBED;
  window_.reset(SDL_CreateWindow(title, SDL_WINDOWPOS_CENTERED, SDL_WINDOWPOS_CENTERED, area.w, area.h,
                                 flags | WindowFlags()));
  if (!window_) throw Refusal("no window on this display");
  desk_ = DeskFor(window_.get());
  outlives_window_ = desk_.globals;
  voice_.emplace();
}

SdlPlatform::~SdlPlatform() {
  if (work_.valid()) work_.wait_for(kPatience);
  if (!voice_->Close()) session_.LeaveOpen();
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

std::optional<Moment> SdlPlatform::LastFrame() {
  const auto last = desk_.screen->LastFrame();
  return last ? std::optional(MomentOf(*last)) : std::nullopt;
}

void SdlPlatform::Poll() {
  polled_ = Now();
  SDL_PumpEvents();
  desk_.line->RequireOpen();
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

std::optional<Event> SdlPlatform::Translate(const SDL_Event& event) const {
  if (auto told = desk_.mouse->Translate(event)) return told;
  switch (event.type) {
    case SDL_QUIT:
      return QuitAsked{};
    case SDL_KEYDOWN:
      return KeyPressed{CodeOf(event.key.keysym), ShiftOf(event.key.keysym.mod)};
    case SDL_KEYUP:
      return KeyReleased{CodeOf(event.key.keysym), ShiftOf(event.key.keysym.mod)};
    case SDL_MOUSEWHEEL:
      return WheelTurned{StepsOf(event.wheel), ShiftOf(SDL_GetModState())};
    case SDL_TEXTINPUT:
      return TextTyped{event.text.text};
    case SDL_WINDOWEVENT:
      if (event.window.event == SDL_WINDOWEVENT_CLOSE) return CloseAsked{};
      if (event.window.event == SDL_WINDOWEVENT_SIZE_CHANGED) desk_.screen->Refit();
      if (event.window.event == SDL_WINDOWEVENT_EXPOSED ||
          event.window.event == SDL_WINDOWEVENT_SIZE_CHANGED) {
        return DisplayChanged{};
      }
      return std::nullopt;
    default:
      return std::nullopt;
  }
}

Moment SdlPlatform::MomentOf(std::chrono::steady_clock::time_point time) const {
  return std::chrono::duration_cast<Moment>(time - start_);
}

Moment SdlPlatform::Now() { return MomentOf(std::chrono::steady_clock::now()); }

void SdlPlatform::Wait(Moment until, Wake wake) {
  // Input is taken whether it wakes or not: some displays show nothing of a program that does not hear them.
  while (wake == Wake::kOnTime || events_.empty()) {
    const Moment left = until - Now();
    if (left <= Moment{0}) return;
    if (desk_.line->InputComes(left)) Poll();
    if (wake == Wake::kOnInput && desk_.screen->TookFrame()) return;
  }
}

void SdlPlatform::ShowPointer(bool shown) { SDL_ShowCursor(shown ? SDL_ENABLE : SDL_DISABLE); }

void SdlPlatform::MovePointer(PixelPoint place) {
  desk_.mouse->Move(place);
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

void SdlPlatform::TextWanted(bool wanted) { wanted ? SDL_StartTextInput() : SDL_StopTextInput(); }

std::string SdlPlatform::Clipboard() { return TakeString(SDL_GetClipboardText()); }

void SdlPlatform::SetClipboard(const std::string& text) { SDL_SetClipboardText(text.c_str()); }

}  // namespace stage::sdl

std::unique_ptr<stage::Platform> stage::MakePlatform(const char* title, const char* name) {
  return std::make_unique<sdl::SdlPlatform>(title, name);
}
