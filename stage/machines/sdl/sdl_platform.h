// The machine at hand: a full-screen window, the pointer, the keyboard and the sound device.
#pragma once

#include <chrono>
#include <deque>
#include <future>
#include <memory>

#include "stage/machines/machine.h"
#include "stage/machines/platform.h"
#include "stage/machines/sdl/artist.h"
#include "stage/machines/sdl/desk.h"
#include "stage/machines/sdl/no_display.h"
#include "stage/machines/sdl/voice.h"

namespace stage::sdl {

class SdlPlatform : public Platform {
 public:
  /// Opens the window. Raises NoDisplay. Without a sound device it plays silently. If the program was
  /// installed its folders are called `name`.
  SdlPlatform(const char* title, const char* name);
  ~SdlPlatform() override;

  ScreenSize Screen() override { return ScreenFor(DisplaySize()); }
  PixelSize DisplaySize() override { return desk_.screen->Size(); }
  stage::Artist& Drawing() override { return artist_; }
  std::optional<Framebuffer> Canvas() override { return desk_.screen->Canvas(); }
  int RefreshRate() override;
  std::optional<Moment> LastFrame() override;
  void Present(std::span<const PixelRect> changed) override { desk_.screen->Present(changed); }
  std::optional<Event> NextEvent() override;
  void Wait(Moment until, Wake wake) override;
  Moment Now() override;
  Double SecondsOfDay() override { return machine::SecondsOfDay(); }
  void ShowPointer(bool shown) override;
  PixelPoint PointerPlace() override { return desk_.mouse->Place(); }
  void MovePointer(PixelPoint place) override;
  void PlaySound(const std::filesystem::path& file) override { voice_->Play(file); }
  std::string Clipboard() override;
  void SetClipboard(const std::string& text) override;
  void TextWanted(bool wanted) override;
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

  Moment MomentOf(std::chrono::steady_clock::time_point time) const;
  std::optional<Event> Translate(const SDL_Event& event) const;
  void Poll();

  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  ProgramFolders folders_;
  Session session_;
  std::shared_ptr<const void> outlives_window_;
  std::unique_ptr<SDL_Window, DestroyWindow> window_;
  Desk desk_;
  Artist artist_;
  std::optional<Voice> voice_;  // opened once there is a window
  std::deque<Event> events_;
  Moment polled_{};
  std::shared_future<void> work_;  // the last one
};

}  // namespace stage::sdl
