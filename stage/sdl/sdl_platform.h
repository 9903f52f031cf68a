// The machine at hand: a full-screen window, the pointer, the keyboard and the sound device.
#pragma once

#include <chrono>
#include <deque>
#include <future>
#include <memory>

#include "stage/platform.h"
#include "stage/sdl/artist.h"
#include "stage/sdl/voice.h"

struct SDL_Window;
union SDL_Event;

namespace stage::sdl {

/// There is no display to show anything on.
class NoDisplay : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

class SdlPlatform : public Platform {
 public:
  /// Opens the window. Raises NoDisplay. Without a sound device it plays silently. If the program was
  /// installed its folders are called `name`.
  SdlPlatform(const char* title, const char* name);
  ~SdlPlatform() override;

  ScreenSize Screen() override { return ScreenFor(DisplaySize()); }
  PixelSize DisplaySize() override;
  stage::Artist& Drawing() override { return artist_; }
  std::optional<Framebuffer> Canvas() override;
  int RefreshRate() override;
  std::optional<Moment> LastFrame() override { return std::nullopt; }
  void Present(std::span<const PixelRect> changed) override;
  std::optional<Event> NextEvent() override;
  void Wait(Moment until, Wake wake) override;
  Moment Now() override;
  Double SecondsOfDay() override;
  void ShowPointer(bool shown) override;
  PixelPoint PointerPlace() override;
  void MovePointer(PixelPoint place) override;
  void PlaySound(const std::filesystem::path& file) override { voice_->Play(file); }
  std::string Clipboard() override;
  void Beside(std::function<void()> work) override;
  ProgramFolders Folders() override { return folders_; }

 private:
  struct Session {
    Session();
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    /// Something else is still at work with SDL; it ends with the program.
    void LeaveOpen() { left_open_ = true; }

   private:
    bool left_open_ = false;
  };
  struct DestroyWindow {
    void operator()(SDL_Window* window) const;
  };

  struct Scale {
    Double x;
    Double y;
  };

  /// Windows and the pointer are measured in points, which may be larger than pixels.
  Scale PixelsOfAPoint();
  std::optional<Event> Translate(const SDL_Event& event);
  void Poll();
  bool InputComes(Moment longest) const;

  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  ProgramFolders folders_;
  Session session_;
  std::unique_ptr<SDL_Window, DestroyWindow> window_;
  int connection_ = -1;
  Artist artist_;
  std::optional<Voice> voice_;  // opened once there is a window
  std::deque<Event> events_;
  Moment polled_{};
  std::shared_future<void> work_;  // the last one
};

}  // namespace stage::sdl
