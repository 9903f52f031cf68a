// Text as bytes and as characters.
#pragma once

#include <string>
#include <string_view>

namespace stage {

/// Bytes that are no UTF-8 are left out.
std::u32string Characters(std::string_view utf8);
std::string Utf8(std::u32string_view characters);

}  // namespace stage
