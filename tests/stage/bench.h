// A stage without a game, for tests.
#pragma once

#include "assets/assets.h"
#include "stage/forms/control_array.h"
#include "stage/machines/scripted/scripted_platform.h"
#include "stage/machines/sdl/artist.h"
#include "stage/stage.h"

namespace tests {

using namespace stage;

class Bench {
 public:
  explicit Bench(ScriptedSetup setup = {}) : platform(std::move(setup), artist) {}

  void Beats(int count) {
    for (int i = 0; i < count; ++i) {
      platform.PassTo(kBeat);
      theatre.DoEvents();
    }
  }
  /// The pointer goes to a place in twips of the screen.
  void PointTo(Double x, Double y) {
    platform.MoveTo(x, y);
    theatre.DoEvents();
  }
  void ClickAt(Double x, Double y) {
    PointTo(x, y);
    platform.Send(PointerPressed{});
    theatre.DoEvents();
  }
  void Press(int code, int shift = 0) {
    platform.Send(KeyPressed{code, shift});
    theatre.DoEvents();
  }
  void Type(const std::string& text) {
    platform.Send(TextTyped{text});
    theatre.DoEvents();
  }
  /// Whatever the display showed is lost.
  void Scribble() {
    const Framebuffer canvas = *platform.Canvas();
    std::fill_n(canvas.pixels, std::ptrdiff_t(canvas.Row(canvas.size.height) - canvas.Row(0)), 0x123456);
  }
  /// All that the display shows.
  std::vector<Pixel> Pixels() {
    theatre.PaintNow();
    const Framebuffer canvas = *platform.Canvas();
    return {canvas.pixels, canvas.Row(canvas.size.height)};
  }

  sdl::Artist artist;
  ScriptedPlatform platform;
  Stage theatre{platform, korvane::Assets(), "Title"};
};

/// A form of the whole screen that notes what happens to it.
class NotingForm : public Form {
 public:
  explicit NotingForm(Stage& stage, Units units = {}, std::string name = "Noting")
      : Form(stage, std::move(name), {0, 0, stage.Screen.Width, stage.Screen.Height}, units) {}

  void Form_Activate() override { notes += "activate "; }
  void Form_Unload() override { notes += "unload "; }
  void Form_Click() override { notes += "click "; }
  void Form_KeyDown(Integer KeyCode, Integer Shift) override {
    notes += "key" + std::to_string(KeyCode) + "/" + std::to_string(Shift) + " ";
  }
  void Form_MouseMove(Integer, Integer, Single X, Single Y) override {
    x = X;
    y = Y;
    notes += "move ";
  }
  std::string Notes() { return std::exchange(notes, {}); }

  std::string notes;
  Single x = 0;
  Single y = 0;
};

}  // namespace tests
