#include "stage/forms/text_box.h"

#include "stage/files/utf8.h"
#include "stage/forms/events.h"
#include "stage/stage.h"

namespace stage {
namespace {

constexpr Double kMargin = 60;  // twips between the border and the text
constexpr Pixel kSelected = 0x3A5A8C;
constexpr Pixel kBorder = 0x606060;

bool IsControl(char32_t character) { return character < 32 || character == 127; }

}  // namespace

TextBox::TextBox(Container& container, const Design& design, const Style& style, const std::string& text,
                 int most)
    : Control(container, design, Layer::kWindow), style_(style), most_(std::size_t(most)), Text(this, {}) {
  // Only an assignment tells the box its characters.
  // cppcheck-suppress useInitializationList
  Text = text;  // NOLINT(cppcoreguidelines-prefer-member-initializer)
}

void TextBox::SetFocus() { GetContainer().Owner().SetFocus(*this); }

void TextBox::SelectAll() {
  MoveCaret(0, false);
  MoveCaret(characters_.size(), true);
}

void TextBox::Resetting(const std::string& text) {
  characters_ = Characters(text);
  caret_ = anchor_ = 0;
  Changing();
}

void TextBox::KeyDown(int code, int shift) {
  const bool select = (shift & kShift) != 0;
  const bool none_selected = anchor_ == caret_;
  switch (code) {
    case key::kBackspace:
      return Delete(none_selected && caret_ > 0 ? caret_ - 1 : Left(), Right());
    case key::kDelete:
      return Delete(Left(), none_selected ? caret_ + 1 : Right());
    case key::kHome:
      return MoveCaret(0, select);
    case key::kEnd:
      return MoveCaret(characters_.size(), select);
    case key::kLeft:
      return MoveCaret(caret_ > 0 ? caret_ - 1 : 0, select);
    case key::kRight:
      return MoveCaret(caret_ + 1, select);
    case key::kV:
      if ((shift & kCtrl) != 0) Type(GetContainer().Owner().OnStage().Machine().Clipboard());
      return;
    default:
      return;
  }
}

void TextBox::Type(const std::string& text) {
  std::u32string characters = Characters(text);
  std::erase_if(characters,
                [&](char32_t character) { return IsControl(character) || (Accepts && !Accepts(character)); });
  if (!characters.empty()) Replace(characters);
}

void TextBox::Replace(const std::u32string& text) {
  const std::size_t left = Left();
  std::u32string changed = characters_;
  changed.erase(left, Right() - left);
  const std::u32string fitting = text.substr(0, most_ - std::min(most_, changed.size()));
  changed.insert(left, fitting);
  Text = Utf8(changed);
  MoveCaret(left + fitting.size(), false);
}

void TextBox::Delete(std::size_t from, std::size_t to) {
  anchor_ = from;
  caret_ = std::min(to, characters_.size());
  Replace({});
}

void TextBox::MoveCaret(std::size_t place, bool select) {
  caret_ = std::min(place, characters_.size());
  if (!select) anchor_ = caret_;
  Changing();
}

std::size_t TextBox::Left() const { return std::min(anchor_, caret_); }
std::size_t TextBox::Right() const { return std::max(anchor_, caret_); }

std::string TextBox::Start(std::size_t length) const {
  return Utf8(std::u32string_view(characters_).substr(0, length));
}

void TextBox::Paint(const Canvas& canvas) const {
  const TwipRect area = Area();
  const Canvas inside = canvas.Within(area);
  inside.Fill(area, 0);
  inside.Frame(area, kBorder);
  const auto width = [&](std::size_t to) { return canvas.TextWidth(style_.font, Start(to)); };
  const Double room = area.width - 2 * kMargin - kTwipsPerPixel;
  const Double start = area.left + kMargin - std::max(0.0, width(caret_) - room);
  const Double height = canvas.TextHeight(style_.font);
  const Double top = area.top + (area.height - height) / 2;
  if (Left() != Right()) {
    inside.Fill({start + width(Left()), top, width(Right()) - width(Left()), height}, kSelected);
  }
  inside.Write({start, top, area.width, height}, {style_.font}, Utf8(characters_), PixelOf(style_.colour));
  if (GetContainer().Owner().Focus() == this) {
    inside.Fill({start + width(caret_), top, kTwipsPerPixel, height}, PixelOf(style_.colour));
  }
}

}  // namespace stage
