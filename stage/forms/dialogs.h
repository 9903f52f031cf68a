// The two boxes that every program of forms has, in the middle of the screen with the program's title on top.
#pragma once

#include <memory>

#include "stage/forms/form.h"
#include "stage/forms/text_box.h"

namespace stage {

/// How boxes look, for forms that are to look alike.
namespace box {
inline constexpr Pixel kFrame = 0xB9C2D6;
inline constexpr Pixel kMarked = 0xFFD23F;
inline const Font kFont{"MS Sans Serif", 9.75F, false};
inline const Font kBold{"MS Sans Serif", 9.75F, true};
}  // namespace box

/// A push button for the pointer, Enter and Space.
class Button : public Control {
 public:
  Button(Container& container, const Design& design, std::string caption)
      : Control(container, design), caption_(std::move(caption)) {}

  bool TakesFocus() const override { return true; }
  void KeyDown(int code, int shift) override;
  void Paint(const Canvas& canvas) const override;

 private:
  std::string caption_;
};

/// A framed form with a title line, as wide as its text needs. Esc closes it.
class Dialog : public Form {
 public:
  const std::string& Message() const { return message_; }
  void Form_KeyDown(Integer KeyCode, Integer Shift) override;

 protected:
  Dialog(Stage& stage, std::string name, std::string message, Double least_width, Double height);
  /// Places button `number` of `count` in a row at the bottom.
  Design ButtonPlace(int number, int count) const;

 private:
  std::string message_;
  Label title_;
  Label text_;
};

class MessageForm : public Dialog {
 public:
  MessageForm(Stage& stage, const std::string& text);

 private:
  Button ok_;
};

class InputForm : public Dialog {
 public:
  InputForm(Stage& stage, const std::string& prompt, const std::string& offered);
  /// The typed text, or the empty string if the box was not closed by OK or Enter.
  const std::string& Answer() const { return answer_; }
  void Form_KeyDown(Integer KeyCode, Integer Shift) override;

 private:
  void Accept();

  TextBox field_;
  Button ok_;
  Button cancel_;
  std::string answer_;
};

}  // namespace stage
