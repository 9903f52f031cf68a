#include "records/codepage.h"

#include <gtest/gtest.h>

namespace {

using namespace korvane;

TEST(CodePage, LacksMostOfTheWorld) {
  for (const char32_t lacking : {U'\u0081', U'\u0100', U'\u0301', U'Ω', U'😀'}) {
    EXPECT_FALSE(TemNaPagina(lacking)) << unsigned(lacking);
  }
  EXPECT_EQ(ParaPagina("aΩ\"😀"), "a?'?");
}

}  // namespace
