// The number types that programs of forms and controls are written in, and their conversions.
#pragma once

#include <concepts>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

#include "stage/errors.h"

namespace stage {

using Single = float;
using Double = double;

/// A signed number of fixed width. Taking a value that does not fit raises RuntimeError. Reads as `Wide`,
/// so that sums are formed without loss and checked where they are stored.
template <std::signed_integral Raw, std::signed_integral Wide>
class Checked {
 public:
  constexpr Checked() = default;
  template <std::integral From>
  constexpr Checked(From value) : raw_(static_cast<Raw>(value)) {  // NOLINT: reads like a plain number
    if (!std::in_range<Raw>(value)) throw RuntimeError("overflow");
  }
  constexpr operator Wide() const { return raw_; }  // NOLINT: reads like a plain number
  /// The lowest number has no opposite.
  constexpr Checked operator-() const { return -Wide{raw_}; }

 private:
  Raw raw_ = 0;
};

using Integer = Checked<std::int16_t, int>;
using Long = Checked<std::int32_t, std::int64_t>;

/// Yes or no, held as the Integer -1 or 0.
class Flag {
 public:
  constexpr Flag(bool value = false) : raw_(value ? -1 : 0) {}  // NOLINT: reads like a plain bool
  constexpr operator bool() const { return raw_ != 0; }         // NOLINT: reads like a plain bool
  constexpr Integer AsInteger() const { return raw_; }

 private:
  std::int16_t raw_;
};

/// To the nearest whole number, halves to the even neighbour. Raises RuntimeError when it does not fit.
Integer CInt(Double value);
Long CLng(Double value);

/// The largest whole number not above `value`.
Double Int(Double value);

/// The decimal number at the start of `text`, with one sign at most; 0 if there is none. Blanks do not count,
/// what follows is ignored.
Double Val(std::string_view text);

/// The shortest decimal text that reads back as `value`, without exponent.
std::string DecimalText(Double value);

}  // namespace stage
