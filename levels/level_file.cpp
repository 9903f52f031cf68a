#include "levels/level_file.h"

#include <algorithm>

namespace korvane {
namespace {

constexpr std::size_t kMostBytes = 16 << 20;
constexpr Double kShortestBlink = 500;

}  // namespace

template <class Convert>
auto LevelRecord::Checked(int field, Convert convert) const {
  try {
    return convert(fields_[std::size_t(field) - 1]);
  } catch (const RuntimeError& error) {
    throw LevelError(error.what(), number_, field);
  }
}

Double LevelRecord::Number(int field) const { return Checked(field, stage::NumberOf); }

Integer LevelRecord::Whole(int field) const {
  return Checked(field, [](std::string_view text) { return CInt(Int(stage::NumberOf(text))); });
}

Integer LevelRecord::Type() const {
  return Checked(5, [](std::string_view text) { return CInt(stage::NumberOf(text)); });
}

Integer LevelRecord::BlinkingType() const {
  return Checked(2, [](std::string_view text) { return CInt(Val(text)); });
}

Long LevelRecord::BlinkInterval() const {
  return Checked(3, [](std::string_view text) { return CLng(std::max(Val(text), kShortestBlink)); });
}

Integer LevelRecord::BarredBonus() const {
  return Checked(4, [](std::string_view text) { return CInt(stage::NumberOf(text)); });
}

LevelRecord LevelReader::Next() {
  ++read_;
  std::array<std::string_view, 5> fields;
  for (int i = 0; i < 5; ++i) {
    if (fields_.AtEnd()) throw LevelError("the file ends inside the record", read_, i + 1);
    fields[std::size_t(i)] = fields_.Next();
  }
  return {fields, read_};
}

std::string LevelText(const std::filesystem::path& file) { return stage::ReadWhole(file, kMostBytes); }

}  // namespace korvane
