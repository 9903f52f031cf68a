// A page of a browser as the machine: a canvas, the pointer or a finger, the keyboard, and the browser's
// sound.
#pragma once

#include "stage/machines/platform.h"
#include "stage/machines/web/web_artist.h"

namespace stage::web {

class WebPlatform : public Platform {
 public:
  /// The program's own folder, which the browser keeps, and the installed one are called `name`.
  explicit WebPlatform(const std::string& name) : folders_{"/home/" + name, "/usr/share/" + name} {}
  ~WebPlatform() override;

  ScreenSize Screen() override { return ScreenFor(DisplaySize()); }
  PixelSize DisplaySize() override;
  Artist& Drawing() override { return artist_; }
  std::optional<Framebuffer> Canvas() override;
  int RefreshRate() override;
  std::optional<Moment> LastFrame() override;
  bool WantsStillness() override;
  void Present(std::span<const PixelRect> changed) override;
  std::optional<Event> NextEvent() override;
  void Wait(Moment until, Wake wake) override;
  Moment Now() override;
  Double SecondsOfDay() override;
  void ShowPointer(bool shown) override;
  PixelPoint PointerPlace() override;
  /// A page cannot move the pointer: it stays where the hand has it.
  void MovePointer(PixelPoint) override {}
  void PlaySound(const std::filesystem::path& file) override;
  /// The browser brings what is pasted as text typed.
  std::string Clipboard() override { return {}; }
  void SetClipboard(const std::string& text) override;
  void TextWanted(bool wanted) override;
  /// Files lie in memory, so there is nothing to wait for.
  void Beside(std::function<void()> work) override { work(); }
  ProgramFolders Folders() override { return folders_; }
  std::string Address() override;

 private:
  ProgramFolders folders_;
  WebArtist artist_;
  PixelSize size_;
  std::vector<Pixel> pixels_;
  std::vector<std::uint32_t> shown_;  // the same as the browser wants it
};

}  // namespace stage::web
