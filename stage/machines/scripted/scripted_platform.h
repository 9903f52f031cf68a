// A machine without a screen, in virtual time: for tests, tools and benchmarks.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <vector>

#include "stage/machines/platform.h"

namespace stage {

struct ScriptedSetup {
  ScreenSize screen{};
  /// Display pixels to one line of the design resolution.
  Double scale = 1;
  Double seconds_of_day = 43200;
  std::filesystem::path folder{};
  int refresh_rate = 0;
  /// The folder that the program was installed to, if it was.
  std::filesystem::path installed{};
  /// How long after those of a clock the display's refreshes come, if it tells of them.
  std::optional<Moment> refresh_phase{};
  /// Somebody looks who wants as little movement as can be.
  bool stillness = false;
  /// Pixels of the display; with none given the screen fills it at that scale.
  PixelSize display{};
};

class ScriptedPlatform : public Platform {
 public:
  ScriptedPlatform(ScriptedSetup setup, Artist& artist);
  ~ScriptedPlatform() override;

  /// Called when the program waits for input: sends events or lets time pass, or throws to end the run.
  /// Without it a wait for input lasts to its end.
  std::function<void()> Director;

  void Send(Event event);
  /// The pointer moves to a place in twips of the screen.
  void MoveTo(Double x, Double y, int shift = 0);
  /// The pointer moves to a place of the display.
  void MoveToPixel(PixelPlace place, int shift = 0);
  void Pass(Moment time) { now_ += time; }
  /// Time passes to the next whole multiple of `beat`.
  void PassTo(Moment beat) { now_ = (now_ / beat + 1) * beat; }
  /// Somebody looks at the screen, or nobody does any more.
  void Look(bool looking);
  /// The display gets another size.
  void Rescale(Double scale);
  /// Names of the sound files started since the last call.
  std::vector<std::string> TakeSounds() { return std::exchange(sounds_, {}); }
  /// All that was presented since the last call.
  std::vector<PixelRect> TakePresented() { return std::exchange(presented_, {}); }
  /// The system's clock is set to this.
  void SetSecondsOfDay(Double seconds);
  bool WantsText() const { return text_wanted_; }
  /// What runs beside the program is done; so it is whenever the program waits.
  void FinishWorks();

  ScreenSize Screen() override { return setup_.screen; }
  PixelSize DisplaySize() override;
  Artist& Drawing() override { return artist_; }
  std::optional<Framebuffer> Canvas() override;
  int RefreshRate() override { return setup_.refresh_rate; }
  std::optional<Moment> LastFrame() override;
  bool WantsStillness() override { return setup_.stillness; }
  void Present(std::span<const PixelRect> changed) override;
  std::optional<Event> NextEvent() override;
  void Wait(Moment until, Wake wake) override;
  Moment Now() override { return now_; }
  Double SecondsOfDay() override;
  void ShowPointer(bool) override {}
  PixelPoint PointerPlace() override;
  void MovePointer(PixelPoint place) override;
  void PlaySound(const std::filesystem::path& file) override;
  std::string Clipboard() override { return clipboard_; }
  void SetClipboard(const std::string& text) override { clipboard_ = text; }
  void TextWanted(bool wanted) override { text_wanted_ = wanted; }
  void Beside(std::function<void()> work) override { works_.push_back(std::move(work)); }
  ProgramFolders Folders() override { return {setup_.folder, setup_.installed}; }

 private:
  ScriptedSetup setup_;
  Artist& artist_;
  Moment now_{};
  std::deque<Event> events_;
  PointerMoved pointer_;
  std::vector<std::string> sounds_;
  std::vector<PixelRect> presented_;
  std::vector<Pixel> pixels_;
  std::string clipboard_;
  bool text_wanted_ = false;
  std::vector<std::function<void()>> works_;
};

}  // namespace stage
