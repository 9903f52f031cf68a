// Whatever an initialisation file holds, a value put into it reads back and every other byte stays.
#include "stage/files/profile.h"

#include <algorithm>

#include "tests/fuzz/require.h"

using namespace stage;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = fuzz::Text(data, size);
  const std::string value = std::to_string(int(size) * 7 - 3000);
  const std::string changed = WithProfileValue(text, "SETUP", "Vkorv", value);
  fuzz::Require(FindProfileValue(changed, "SETUP", "Vkorv") == value, "the value reads back");
  fuzz::Require(WithProfileValue(changed, "SETUP", "Vkorv", value) == changed, "once is enough");

  const auto same = static_cast<std::size_t>(std::ranges::mismatch(text, changed).in1 - text.begin());
  std::size_t behind = 0;
  while (behind < std::min(text.size(), changed.size()) - same &&
         text[text.size() - 1 - behind] == changed[changed.size() - 1 - behind]) {
    ++behind;
  }
  const std::string_view gone = text.substr(same, text.size() - same - behind);
  const bool found = FindProfileValue(text, "SETUP", "Vkorv").has_value();
  fuzz::Require(found || gone.empty(), "what is added takes nothing away");
  fuzz::Require(gone.find_first_of("\r\n") == std::string_view::npos, "lines stay apart");
  for (const char* key : {"a", ";Vkorv", ""}) {
    fuzz::Require(FindProfileValue(text, "SETUP", key) == FindProfileValue(changed, "SETUP", key),
                  "other keys keep their values");
  }
  return 0;
}
