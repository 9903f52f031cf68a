// A field to type one line of text into.
#pragma once

#include <string>

#include "stage/forms/controls.h"

namespace stage {

/// Typing, Backspace, Delete, Home, End, arrows, selection by Shift, Ctrl+V. Text is UTF-8 and counts
/// characters.
class TextBox : public Control {
 public:
  /// No more than `most` characters can be typed.
  TextBox(Container& container, const Design& design, const Style& style, const std::string& text, int most);

  void SetFocus();
  /// The next character typed takes the place of all there is.
  void SelectAll();

  void Paint(const Canvas& canvas) const override;
  bool TakesFocus() const override { return true; }
  bool TakesText() const override { return true; }
  void KeyDown(int code, int shift) override;
  void Type(const std::string& text) override;

 private:
  void Resetting(const std::string& text);
  /// Puts `text` in the place of what is selected.
  void Replace(const std::u32string& text);
  void MoveCaret(std::size_t place, bool select);
  void Delete(std::size_t from, std::size_t to);
  std::size_t Left() const;
  std::size_t Right() const;
  std::string Start(std::size_t length) const;

  Style style_;
  std::size_t most_;
  std::u32string characters_;
  std::size_t caret_ = 0;
  std::size_t anchor_ = 0;  // the selection lies between anchor and caret

 public:
  Property<std::string, &TextBox::Resetting> Text;

  /// Characters that the box takes; null takes all.
  std::function<bool(char32_t)> Accepts;
};

}  // namespace stage
