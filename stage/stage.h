// The stage: forms, events, timers, dialogs and system services for one program.
#pragma once

#include <string>
#include <string_view>

#include "stage/painting/effects.h"
#include "stage/painting/glide.h"
#include "stage/painting/painter.h"
#include "stage/time/random.h"
#include "stage/time/timer_set.h"

namespace stage {

/// Unwinds the program to where it was started. Thrown by Stage::End; nothing else catches it.
struct ProgramEnd {};

class Stage {
 public:
  Stage(Platform& platform, std::span<const Asset> assets, std::string title);

  // The run.

  /// Reacts to events until no form is up.
  void Run();
  /// Lets every event that is waiting run to its end, then returns.
  void DoEvents();
  /// Ends the program at once.
  [[noreturn]] static void End();
  /// Blocks the whole program; nothing is painted and no event runs.
  void Sleep(std::chrono::milliseconds time);
  /// Keys, text and buttons that wait reach no form. If the system wants to close one, all of them close.
  void ForgetInput();

  // Forms. Their names (FormName) and they themselves call these.

  void Show(const std::shared_ptr<Form>& form, Modality modality);
  void Unload(Form& form);
  /// The form that keys go to: the last one shown of those that are up. Null if none is.
  Form* ActiveForm() const { return forms_.empty() ? nullptr : forms_.back().get(); }

  // Dialogs.

  void MsgBox(const std::string& text);
  /// The typed text, or the empty string on Cancel. `offered` stands in the box at first.
  std::string InputBox(const std::string& prompt, const std::string& offered = "");
  const std::string& Title() const { return title_; }

  // Painting.

  void Touch() { touched_ = true; }
  void Damage(const PixelRect& pixels);
  void PaintNow();
  /// Paints everything anew.
  void Repaint();
  Painter& Painting() { return painter_; }
  /// The picture as the display shows it at this moment, at its natural size.
  std::shared_ptr<const Bitmap> BitmapOf(const Picture& picture);

  // Services.

  const ScreenSize Screen;
  const PictureStore Pictures;
  Random Draws;

  TimerSet& Timers() { return timers_; }
  GlideSet& Glides() { return glides_; }
  EffectSet& Effects() { return effects_; }
  Platform& Machine() { return platform_; }
  /// The folder of the program as the machine names it; a separator stands at its end only if it is the root.
  std::string AppPath() const;
  /// A file of that folder; if it is missing and the program was installed, the installed one.
  std::filesystem::path FileToRead(const std::filesystem::path& file) const;
  /// Seconds since midnight.
  Single Timer() { return Single(platform_.SecondsOfDay()); }
  void Randomize(Single seed) { Draws.Randomize(seed); }
  Single Rnd() { return Draws.Rnd(); }
  /// Adds 1 to the pointer's display counter or takes 1 off, and gives its new value. The pointer shows while
  /// the counter is 0 or more.
  Long ShowCursor(bool shown);
  Long CursorCounter() const { return cursor_counter_; }
  /// In display pixels.
  PixelPoint GetCursorPos() { return platform_.PointerPlace(); }
  /// No form hears of the move: it is not the player's.
  void SetCursorPos(PixelPoint place);
  /// Starts a sound file of the program's folder and returns at once.
  void sndPlaySoundA(const std::filesystem::path& file);

 private:
  void Wait();
  /// Tells the machine when a control that takes text gets or loses the focus.
  void TellOfText();
  /// The modal form shown last is gone, or the session ends: input that waits is for what comes then.
  bool Returning() const;
  void CloseForms();
  void Dispatch(const Event& event);
  void Locate(const PointerMoved& pointer);
  void Handle(const PointerMoved& event);
  void Handle(const PointerPressed& event);
  void Handle(const PointerReleased& event);
  void Handle(const WheelTurned& event);
  void Handle(const KeyPressed& event);
  void Handle(const KeyReleased& event);
  void Handle(const TextTyped& event);
  void Handle(const CloseAsked& event);
  void Handle(const QuitAsked& event);
  void Handle(const DisplayChanged& event);
  /// What the pointer's events are for: a form, or a control of it.
  struct Pointed {
    std::shared_ptr<Form> form;
    Control* control = nullptr;
  };
  Pointed UnderPointer() const;
  Place PlaceIn(const Form& form) const;
  void Release(int button);

  Platform& platform_;
  std::string title_;
  TimerSet timers_;
  GlideSet glides_;
  Painter painter_;
  EffectSet effects_{*this};
  FormList forms_;
  std::vector<const Form*> modal_;  // those whose Show has not returned
  TwipPoint pointer_;
  int buttons_ = 0;                        // those that are down
  std::weak_ptr<Form> keeper_;             // of the pointer, until no button is down
  std::optional<PixelPoint> pointer_set_;  // where the program has put it, until that is reported
  Long cursor_counter_ = 0;
  bool touched_ = false;
  bool text_wanted_ = false;
  bool quitting_ = false;
};

template <class AForm, class Context>
void FormName<AForm, Context>::Load() {
  if (Loaded()) return;
  form_ = std::make_shared<AForm>(context_);
  form_->Form_Load();
}

template <class AForm, class Context>
void FormName<AForm, Context>::Show(Modality modality) {
  Load();
  if (Loaded()) stage_.Show(form_, modality);
}

}  // namespace stage
