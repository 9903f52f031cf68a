#include "stage/machines/machine.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <thread>

#include "stage/files/path_text.h"
#include "stage/files/text_file.h"
#include "tests/mesa.h"

namespace {

using stage::RuntimeError;

TEST(PathText, IsTheSameNameBothWays) {
  const std::filesystem::path path(L"C:\\Jos\u00E9 \u65E5\u672C");
  EXPECT_EQ(stage::PathOf("C:\\José 日本"), path);
  EXPECT_EQ(stage::TextOf(path), "C:\\José 日本");
}

class Replacing : public testing::Test {
 protected:
  Replacing() { tests::WriteFile(file, "old"); }

  /// Nothing is written, and nothing is left lying about.
  void ExpectRefused() {
    EXPECT_THROW(stage::WriteWhole(file, "new"), RuntimeError);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
  }

  stage::TempFolder folder{tests::kAnyLetters};
  const std::filesystem::path file = folder.Path() / "a";
};

TEST_F(Replacing, WaitsForAReaderButNotForEver) {
  std::ifstream reader(file);
  ASSERT_TRUE(reader.is_open());
  ExpectRefused();
  EXPECT_EQ(stage::ReadWhole(file, 9), "old");
  std::jthread leaving([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    reader.close();
  });
  stage::WriteWhole(file, "new");
  EXPECT_EQ(tests::ReadFile(file), "new");
}

TEST_F(Replacing, LeavesWhatIsReadOnly) {
  SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
  ExpectRefused();
  EXPECT_EQ(tests::ReadFile(file), "old");
  SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(Replacing, TakesOverWhatAKilledWriterLeft) {
  tests::WriteFile(folder.Path() / "a.tmp", "much more than is written now");
  stage::WriteWhole(file, "new");
  EXPECT_EQ(tests::ReadFile(file), "new");
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

}  // namespace
