// JSON values as text, one after the other.
#pragma once

#include <string>
#include <string_view>

#include "stage/scalars.h"

namespace replay {

/// A number so that it reads back exactly.
std::string Json(stage::Double value);
std::string Json(std::string_view text);
inline std::string Json(stage::Integer value) { return std::to_string(value); }
inline std::string Json(stage::Long value) { return std::to_string(value); }
inline std::string Json(stage::Flag value) { return std::to_string(value.AsInteger()); }

/// Collects the members of an object, or the elements of a list, in brackets.
class JsonGroup {
 public:
  explicit JsonGroup(char open) : text_(1, open) {}
  void Add(const std::string& json) {
    if (text_.size() > 1) text_ += ',';
    text_ += json;
  }
  void Add(std::string_view name, const std::string& json) { Add(Json(name) + ':' + json); }
  std::string Done() { return text_ + (text_.front() == '{' ? '}' : ']'); }

 private:
  std::string text_;
};

}  // namespace replay
