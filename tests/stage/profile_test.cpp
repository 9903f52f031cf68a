#include "stage/files/profile.h"

#include <gtest/gtest.h>

namespace {

struct Change {
  const char* what;
  std::string before;
  std::string after;
};

TEST(Profile, WritingAValueKeepsEveryOtherByte) {
  const Change changes[] = {
      {"nothing there", "", "[SETUP]\r\nVkorv=420\r\n"},
      {"no section", "[A]\nVkorv=1\n", "[A]\nVkorv=1\n[SETUP]\nVkorv=420\n"},
      {"no section, no last line end", "; a\r\nx=1", "; a\r\nx=1\r\n[SETUP]\r\nVkorv=420\r\n"},
      {"no key", "[setup]\r\na=1\r\n\r\n[B]\r\n", "[setup]\r\na=1\r\nVkorv=420\r\n\r\n[B]\r\n"},
      {"no key, section last and bare", "[SETUP]", "[SETUP]\r\nVkorv=420"},
      {"no key, comments last", "[SETUP]\n; why\n\n", "[SETUP]\n; why\nVkorv=420\n\n"},
      {"key there", "[SETUP]\r\nVkorv=1\r\nz=2\r\n", "[SETUP]\r\nVkorv=420\r\nz=2\r\n"},
      {"other case, blanks, no last line end", " [ setup ] ; s\n\tVKORV\t= 99 m/s",
       " [ setup ] ; s\n\tVKORV\t=420"},
      {"empty value", "[SETUP]\nVkorv=\n", "[SETUP]\nVkorv=420\n"},
      {"the same key twice", "[SETUP]\nVkorv=1\nVkorv=2\n", "[SETUP]\nVkorv=420\nVkorv=2\n"},
      {"key before and after its section", "Vkorv=1\n[SETUP]\n[B]\nVkorv=2\n",
       "Vkorv=1\n[SETUP]\nVkorv=420\n[B]\nVkorv=2\n"},
      {"mixed line ends", "[A]\r\n[SETUP]\nVkorv=1\rb=2\r\n", "[A]\r\n[SETUP]\nVkorv=420\rb=2\r\n"},
      {"commented out", "[SETUP]\n;Vkorv=1\n", "[SETUP]\n;Vkorv=1\nVkorv=420\n"},
      {"unfinished section and bytes of any kind", std::string("[SETUP\n\xFF\0=\xE9\n", 12),
       std::string("[SETUP\n\xFF\0=\xE9\n", 11) + "\nVkorv=420\n"}};
  for (const Change& change : changes) {
    SCOPED_TRACE(change.what);
    const std::string after = stage::WithProfileValue(change.before, "SETUP", "Vkorv", "420");
    EXPECT_EQ(after, change.after);
    EXPECT_EQ(stage::FindProfileValue(after, "SETUP", "Vkorv"), "420");
    EXPECT_EQ(stage::WithProfileValue(after, "SETUP", "Vkorv", "420"), after);
  }
}

}  // namespace
