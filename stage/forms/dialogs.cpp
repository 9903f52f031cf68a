#include "stage/forms/dialogs.h"

#include "stage/forms/events.h"
#include "stage/stage.h"

namespace stage {

using namespace box;

namespace {

constexpr Double kMargin = 240;
constexpr Double kTitleHeight = 420;
constexpr Double kButtonWidth = 1200;
constexpr Double kButtonHeight = 420;
constexpr int kMostTyped = 254;
constexpr Pixel kButtonFace = 0x2A3348;
constexpr Pixel kWords = 0xF0F0F0;

Double TextWidth(Stage& stage, const std::string& text) {
  return stage.Painting().Made().TextWidth(kFont, 1, text) * kTwipsPerPixel;
}

}  // namespace

void Button::KeyDown(int code, int) {
  if ((code == key::kEnter || code == key::kSpace) && Click) Click();
}

void Button::Paint(const Canvas& canvas) const {
  const TwipRect area = Area();
  const bool focused = GetContainer().Owner().Focus() == this;
  canvas.Fill(area, kButtonFace);
  canvas.Frame(area, focused ? kMarked : kFrame);
  const Double height = canvas.TextHeight(kFont);
  canvas.Write({area.left, area.top + (area.height - height) / 2, area.width, height},
               {kFont, Align::kCenter}, caption_, kWords);
}

Dialog::Dialog(Stage& stage, std::string name, std::string message, Double least_width, Double height)
    : Form(stage, std::move(name),
           {0, 0, std::max(least_width, TextWidth(stage, message) + 2 * kMargin + kTwipsPerPixel), height}),
      message_(std::move(message)),
      title_(*this, {kMargin, 90, Width - 2 * kMargin, kTitleHeight}, {kBold, Rgb(255, 210, 63)},
             stage.Title()),
      text_(*this, {kMargin, kTitleHeight + kMargin, Width - kMargin, 300}, {kFont, Rgb(240, 240, 240)},
            message_) {
  Left = Single((stage.Screen.Width - Width) / 2);
  Top = Single((stage.Screen.Height - Height) / 2);
  SetFrame(kFrame);
}

Design Dialog::ButtonPlace(int number, int count) const {
  const Double row = count * (kButtonWidth + kMargin) - kMargin;
  return {(Width - row) / 2 + number * (kButtonWidth + kMargin), Height - kButtonHeight - kMargin,
          kButtonWidth, kButtonHeight};
}

void Dialog::Form_KeyDown(Integer KeyCode, Integer) {
  if (KeyCode == key::kEsc) Unload();
}

MessageForm::MessageForm(Stage& stage, const std::string& text)
    : Dialog(stage, "MsgBox", text, 3600, 1900), ok_(*this, ButtonPlace(0, 1), "OK") {
  ok_.Click = [this] { Unload(); };
  SetFocus(ok_);
}

InputForm::InputForm(Stage& stage, const std::string& prompt, const std::string& offered)
    : Dialog(stage, "InputBox", prompt, 4800, 2400),
      field_(*this, {kMargin, 1080, Width - 2 * kMargin, 390}, {kFont, Rgb(255, 255, 255)}, offered,
             kMostTyped),
      ok_(*this, ButtonPlace(0, 2), "OK"),
      cancel_(*this, ButtonPlace(1, 2), "Cancel") {
  ok_.Click = [this] { Accept(); };
  cancel_.Click = [this] { Unload(); };
  SetFocus(field_);
  field_.SelectAll();
}

void InputForm::Form_KeyDown(Integer KeyCode, Integer Shift) {
  if (KeyCode == key::kEnter && Focus() == &field_) return Accept();
  Dialog::Form_KeyDown(KeyCode, Shift);
}

void InputForm::Accept() {
  answer_ = field_.Text;
  Unload();
}

}  // namespace stage
