// The seam between the stage and the machine. What is above it is the same code on every platform.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "stage/files/program_folders.h"
#include "stage/forms/events.h"
#include "stage/painting/artist.h"

namespace stage {

/// Time since the platform was made.
using Moment = std::chrono::microseconds;

struct PixelPoint {
  int x = 0;
  int y = 0;
};

enum class Wake { kOnInput, kOnTime };

class Platform {
 public:
  Platform() = default;
  Platform(const Platform&) = delete;
  Platform& operator=(const Platform&) = delete;
  virtual ~Platform() = default;

  /// The size to make the program's screen from.
  virtual ScreenSize Screen() = 0;
  virtual PixelSize DisplaySize() = 0;
  virtual Artist& Drawing() = 0;

  /// What the picture is composed in; its content and place stay until the display changes. Nothing when
  /// nobody looks.
  virtual std::optional<Framebuffer> Canvas() = 0;
  /// How often a second the display shows a new picture; 0 if nobody sees it move.
  virtual int RefreshRate() = 0;
  /// When the display last took a new picture; nothing if the machine does not tell. Taking one wakes whoever
  /// waits for input.
  virtual std::optional<Moment> LastFrame() = 0;
  /// Whoever looks has asked the machine for as little movement as can be. Asked at every refresh.
  virtual bool WantsStillness() { return false; }
  /// Shows these rectangles of the canvas.
  virtual void Present(std::span<const PixelRect> changed) = 0;

  virtual std::optional<Event> NextEvent() = 0;
  /// Gives way until `until`, or until input comes if that wakes; at least once where input and frames come
  /// at no other time. The only place where the program waits.
  virtual void Wait(Moment until, Wake wake) = 0;

  virtual Moment Now() = 0;
  /// Seconds since midnight by the system's clock.
  virtual Double SecondsOfDay() = 0;

  virtual void ShowPointer(bool shown) = 0;
  /// In display pixels.
  virtual PixelPoint PointerPlace() = 0;
  /// The move is reported like one of the hand, also one to where the pointer is already. Moves made before
  /// it are reported no more.
  virtual void MovePointer(PixelPoint place) = 0;

  /// Starts a sound file and returns at once; what still plays is cut off. A file that cannot be played is
  /// silence.
  virtual void PlaySound(const std::filesystem::path& file) = 0;
  virtual std::string Clipboard() = 0;
  virtual void SetClipboard(const std::string& text) = 0;
  /// Characters typed are wanted from now on, or keys alone; at first these are.
  virtual void TextWanted(bool /*wanted*/) {}
  /// Runs `work`, which may have to wait for the disk and touches nothing of the program, beside the program.
  /// One work runs after the other; before the platform ends all are done, but for one that takes too long.
  virtual void Beside(std::function<void()> work) = 0;
  virtual ProgramFolders Folders() = 0;
  /// Where others find the program, as far as a '#' would follow; empty if they find it nowhere.
  virtual std::string Address() { return {}; }
};

/// The machine that the program is built for. `title` names the program to its player, `name` its folders.
/// Raises std::exception if it cannot be played on.
std::unique_ptr<Platform> MakePlatform(const char* title, const char* name);

}  // namespace stage
