// The text of a level, record by record.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>

#include "core/Module1.h"
#include "stage/files/text_file.h"

namespace korvane {

/// What is wrong with a level's text, and where: records and fields count from 1, a field of 0 is the whole
/// record.
class LevelError : public RuntimeError {
 public:
  LevelError(const std::string& why, int record, int field)
      : RuntimeError(why), Record(record), Field(field) {}
  int Record;
  int Field;
};

/// Five fields. A record is a rule of the level or one block, in design units of a 12000 by 9000 screen.
class LevelRecord {
 public:
  LevelRecord(const std::array<std::string_view, 5>& fields, int number) : fields_(fields), number_(number) {}

  int Number() const { return number_; }
  bool IsRule() const { return fields_[0] == "pisca"; }

  /// Numbers of a block, rounded down to whole ones. Each raises LevelError if its field does not hold one
  /// that fits 16 bits.
  Integer Top() const { return Whole(1); }
  Integer Left() const { return Whole(2); }
  Integer Height() const { return Whole(3); }
  Integer Width() const { return Whole(4); }
  /// To the nearest type. Raises LevelError like the others.
  Integer Type() const;
  /// The type as written is exactly this.
  bool TypeIs(int type) const { return Number(5) == type; }

  /// Numbers of a rule. The first two never fail on their text; what does not fit raises LevelError.
  bool Blinks() const { return Val(fields_[1]) > 0; }
  Integer BlinkingType() const;
  /// Milliseconds, at least 500.
  Long BlinkInterval() const;
  Integer BarredBonus() const;

 private:
  Double Number(int field) const;
  Integer Whole(int field) const;
  template <class Convert>
  auto Checked(int field, Convert convert) const;

  std::array<std::string_view, 5> fields_;
  int number_;
};

/// Reads records from the text of a level. The text has to outlive the reader and its records.
class LevelReader {
 public:
  explicit LevelReader(std::string_view text) : fields_(text) {}

  bool AtEnd() const { return fields_.AtEnd(); }
  /// Raises LevelError if the text ends inside the record.
  LevelRecord Next();

 private:
  stage::FieldReader fields_;
  int read_ = 0;
};

/// The text of a level file. Raises RuntimeError if it cannot be read.
std::string LevelText(const std::filesystem::path& file);

}  // namespace korvane
