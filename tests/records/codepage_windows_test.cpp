#include "records/codepage.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <set>

#include "stage/files/path_text.h"

namespace {

using namespace korvane;

TEST(CodePage, IsTheSystemsOwn) {
  constexpr UINT kWestern = 1252;
  const std::set<int> free{0x81, 0x8D, 0x8F, 0x90, 0x9D};  // which the system does not refuse
  for (int byte = 1; byte < 256; ++byte) {
    if (free.contains(byte)) continue;
    const char in = static_cast<char>(byte);
    wchar_t wide = 0;
    ASSERT_EQ(MultiByteToWideChar(kWestern, 0, &in, 1, &wide, 1), 1);
    char out[8] = {};
    const int size = WideCharToMultiByte(CP_UTF8, 0, &wide, 1, out, sizeof out, nullptr, nullptr);
    const std::string utf8(out, std::size_t(size));
    EXPECT_EQ(DaPagina(std::string(1, in)), utf8) << byte;
    if (in != '"') {
      EXPECT_EQ(ParaPagina(utf8), std::string(1, in)) << byte;
    }
  }
}

}  // namespace
