#include "stage/painting/shaped_drawing.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <optional>

namespace stage {
namespace {

constexpr std::string_view kNumberStarts = "-.0123456789";
// With more copies than that a pattern is finer than anybody can see.
constexpr int kMostCopies = 400;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// Takes the next number from the front, with all that stands before it. Nothing if there is none.
std::optional<Double> TakeNumber(std::string_view& text) {
  constexpr Double kLargest = 1e6;
  text.remove_prefix(std::min(text.find_first_of(kNumberStarts), text.size()));
  if (text.empty()) return {};
  const Double sign = text.front() == '-' ? -1 : 1;
  if (sign < 0) text.remove_prefix(1);
  Double value = 0;
  Double part = 1;
  bool fraction = false;
  while (!text.empty() && (IsDigit(text.front()) || (text.front() == '.' && !fraction))) {
    if (text.front() == '.') {
      fraction = true;
    } else {
      if (fraction) part /= 10;
      value = fraction ? value + part * (text.front() - '0') : value * 10 + (text.front() - '0');
    }
    text.remove_prefix(1);
  }
  return sign * std::min(value, kLargest);
}

Double NumberIn(std::string_view text) { return TakeNumber(text).value_or(0); }

/// With five digits behind the point.
std::string Number(Double value) {
  constexpr std::int64_t kParts = 100'000;
  const auto parts = std::int64_t(std::round(value * kParts));
  const std::string fraction = std::to_string(kParts + std::abs(parts) % kParts).replace(0, 1, ".");
  return (parts < 0 ? "-" : "") + std::to_string(std::abs(parts) / kParts) + fraction;
}

/// One side of a drawing and the pixels that it is to fill. The body is what lies between its edges.
struct Side {
  Double drawn = 1;
  int shown = 1;
  Double scale = 1;
  Double begin = 0;
  Double end = drawn;

  /// As far from the nearer end of the body as it is drawn, in whole pixels, and never across the middle.
  int Kept(Double place) const {
    const int first = Pixels(begin);
    const int last = shown - Pixels(drawn - end);
    const Double middle = (last - first) / 2.0;
    const auto inward = [&](Double distance) { return Pixels(std::min(distance, middle / scale)); };
    return place <= (begin + end) / 2 ? first + inward(place - begin) : last - inward(end - place);
  }
  /// Where the first of a row of copies begins, so that the one that is drawn keeps its distance from the
  /// middle.
  Double FirstCopy(Double period, Double own_scale) const {
    const Double drawn_one = std::round(shown / 2.0 - drawn / 2 * own_scale);
    return drawn_one - std::ceil((drawn_one - own_scale) / period) * period;
  }
  int Copies(Double first, Double period, Double own_scale) const {
    return static_cast<int>(std::ceil((shown - own_scale - first) / period));
  }

 private:
  int Pixels(Double length) const {
    return static_cast<int>(std::lround(std::clamp(length * scale, -2.0 * shown, 2.0 * shown)));
  }
};

/// Writes the parts of a drawing so that they fit. Its scale is that of the shorter side.
class Shaper {
 public:
  Shaper(std::string_view root, PixelSize drawn, PixelSize shown, std::string& text)
      : scale_(Double(std::min(shown.width, shown.height)) / std::min(drawn.width, drawn.height)),
        across_{Double(drawn.width), shown.width, scale_},
        down_{Double(drawn.height), shown.height, scale_},
        text_(text) {
    std::string_view body = AttributeOf(root, "data-body");
    for (Double* const edge : {&across_.begin, &down_.begin, &across_.end, &down_.end}) {
      *edge = TakeNumber(body).value_or(*edge);
    }
  }

  /// What stands behind the root's tag. False if it cannot be made to fit.
  bool Write(std::string_view body);

 private:
  bool WriteEdge(std::string_view tag);
  bool WriteValue(std::string_view name, std::string_view value);
  bool WritePath(std::string_view path);
  void WritePattern(std::string_view tag, std::string_view inside);

  Double scale_;
  Side across_;
  Side down_;
  std::string& text_;
};

bool Shaper::Write(std::string_view body) {
  constexpr std::string_view kEndOfGroup = "</g>";
  while (!body.empty()) {
    // With the end of the tag before in front.
    const std::string_view tag = body.substr(0, body.find('>', 1));
    body.remove_prefix(tag.size());
    if (AttributeOf(tag, "data-every").empty()) {
      if (!WriteEdge(tag)) return false;
    } else {
      const std::size_t group = body.find(kEndOfGroup);
      if (group == std::string_view::npos) return false;
      WritePattern(tag, body.substr(0, group + kEndOfGroup.size()));
      body.remove_prefix(group + kEndOfGroup.size());
    }
  }
  return true;
}

bool Shaper::WriteEdge(std::string_view tag) {
  while (true) {
    const std::size_t start = tag.find("=\"");
    const std::size_t end = start == std::string_view::npos ? start : tag.find('"', start + 2);
    if (end == std::string_view::npos) break;
    text_.append(tag.substr(0, start + 2));
    const std::size_t name = tag.find_last_of(" \n", start) + 1;
    if (!WriteValue(tag.substr(name, start - name), tag.substr(start + 2, end - start - 2))) return false;
    tag.remove_prefix(end);
  }
  text_.append(tag);
  return true;
}

bool Shaper::WriteValue(std::string_view name, std::string_view value) {
  if (name == "d") return WritePath(value);
  if (name == "x1" || name == "x2") {
    text_ += std::to_string(across_.Kept(NumberIn(value)));
  } else if (name == "y1" || name == "y2") {
    text_ += std::to_string(down_.Kept(NumberIn(value)));
  } else if (name == "stroke-width") {
    text_ += Number(NumberIn(value) * scale_);
  } else {
    text_.append(value);
  }
  return true;
}

bool Shaper::WritePath(std::string_view path) {
  char command = 'M';
  bool across = true;
  while (!path.empty()) {
    const char next = path.front();
    if (next == ' ' || next == ',' || next == '\n') {
      path.remove_prefix(1);
    } else if (kNumberStarts.find(next) != std::string_view::npos) {
      const Double place = *TakeNumber(path);
      text_ += ' ';
      text_ += std::to_string((across ? across_ : down_).Kept(place));
      if (command != 'H' && command != 'V') across = !across;
    } else if (std::string_view("MLHVCSQTZ").find(next) != std::string_view::npos) {
      command = next;
      across = command != 'V';
      text_ += command;
      path.remove_prefix(1);
    } else {
      return false;
    }
  }
  return true;
}

void Shaper::WritePattern(std::string_view tag, std::string_view inside) {
  std::string_view every = AttributeOf(tag, "data-every");
  const Double width = std::max(TakeNumber(every).value_or(1), 1.0);
  const Double height = std::max(TakeNumber(every).value_or(width), 1.0);
  // Copies lie whole pixels apart, so that all look alike.
  const Double period_x = std::max(std::round(width * scale_), 1.0);
  const Double scale = period_x / width;
  const Double period_y = height * scale;
  const Double left = across_.FirstCopy(period_x, scale);
  const Double top = down_.FirstCopy(period_y, scale);
  const int columns = across_.Copies(left, period_x, scale);
  const int rows = down_.Copies(top, period_y, scale);
  const std::size_t start = std::min(tag.find('<'), tag.size());
  text_.append(tag.substr(0, start));
  if (std::int64_t{columns} * rows > kMostCopies) return;
  for (int row = 0; row < rows; ++row) {
    for (int column = 0; column < columns; ++column) {
      text_.append(tag.substr(start))
          .append(" transform=\"translate(")
          .append(Number(left + column * period_x))
          .append(" ");
      text_.append(Number(top + row * period_y)).append(") scale(").append(Number(scale)).append(")\"");
      text_.append(inside);
    }
  }
}

/// What a drawing of this size shows.
std::string AllOf(PixelSize size) {
  return "0 0 " + std::to_string(size.width) + ' ' + std::to_string(size.height);
}

std::string Root(PixelSize size, std::string_view view) {
  return R"(<svg xmlns="http://www.w3.org/2000/svg" preserveAspectRatio="none" width=")" +
         std::to_string(size.width) + R"(" height=")" + std::to_string(size.height) + R"(" viewBox=")" +
         std::string(view) + "\">";
}

}  // namespace

std::string_view AttributeOf(std::string_view tag, std::string_view name) {
  const std::string start = " " + std::string(name) + "=\"";
  const std::size_t place = tag.find(start);
  if (place == std::string_view::npos) return {};
  const std::string_view value = tag.substr(place + start.size());
  return value.substr(0, value.find('"'));
}

std::string DrawingFor(const Picture& picture, PixelSize size) {
  const std::size_t end = picture.svg.find('>');
  if (end == std::string_view::npos) return std::string(picture.svg);
  const std::string_view root = picture.svg.substr(0, end);
  const std::string_view body = picture.svg.substr(end + 1);
  if (AttributeOf(root, "data-shape") == "any" && picture.natural.width > 0 && picture.natural.height > 0) {
    std::string text = Root(size, AllOf(size));
    if (Shaper(root, picture.natural, size, text).Write(body)) return text;
  }
  const std::string_view view = AttributeOf(root, "viewBox");
  return Root(size, view.empty() ? AllOf(picture.natural) : std::string(view)) + std::string(body);
}

}  // namespace stage
