#include "records/codepage.h"

#include <gtest/gtest.h>
#include <iconv.h>

#include <cstdint>

namespace {

using namespace korvane;

TEST(CodePage, IsTheSystemsOwn) {
  iconv_t from = iconv_open("UTF-8", "WINDOWS-1252");
  ASSERT_NE(reinterpret_cast<std::intptr_t>(from), -1);
  for (int byte = 1; byte < 256; ++byte) {
    char in = static_cast<char>(byte);
    char out[8] = {};
    char* source = &in;
    char* target = out;
    std::size_t left = 1;
    std::size_t room = sizeof out;
    const bool known = iconv(from, &source, &left, &target, &room) != std::size_t(-1);
    const std::string utf8(out, known ? sizeof out - room : 0);
    EXPECT_EQ(DaPagina(std::string(1, in)), utf8) << byte;
    if (known && in != '"') {
      EXPECT_EQ(ParaPagina(utf8), std::string(1, in)) << byte;
    }
  }
  iconv_close(from);
}

}  // namespace
