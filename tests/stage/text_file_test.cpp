#include "stage/files/text_file.h"

#include <gtest/gtest.h>

#include <thread>

#include "tests/mesa.h"

namespace {

using stage::RuntimeError;

TEST(TextFile, HandsOutItsStartOrTheWhole) {
  const stage::TempFolder folder(tests::kAnyLetters);
  const auto file = folder.Path() / "a";
  tests::WriteFile(file, "12345");
  EXPECT_EQ(stage::ReadStart(file, 3), "123");
  EXPECT_EQ(stage::ReadStart(file, 9), "12345");
  EXPECT_EQ(stage::ReadWhole(file, 5), "12345");
  EXPECT_THROW(stage::ReadWhole(file, 4), RuntimeError);
  EXPECT_THROW(stage::ReadStart(folder.Path(), 9), RuntimeError);
  EXPECT_THROW(stage::ReadStart(folder.Path() / "b", 9), RuntimeError);
}

TEST(TextFile, FieldsEndAtCommasAndLineEnds) {
  struct Case {
    std::string text;
    std::vector<std::string> fields;
  };
  const Case cases[] = {{"a,b\r\nc\nd\re", {"a", "b", "c", "d", "e"}},
                        {" \ta b ,\t c", {"a b ", "c"}},
                        {"\"a,b\r\n\" , c", {"a,b\r\n", "c"}},
                        {",,\r\n", {"", "", ""}},
                        {"\"\"\r\n\"x", {"", "x"}},
                        {"\"a\"b,c", {"a", "b", "c"}},
                        {"a\"b\",c", {"a\"b\"", "c"}},
                        {"a;~b", {"a;~b"}}};
  for (const Case& test : cases) {
    stage::FieldReader reader(test.text);
    std::vector<std::string> fields;
    while (!reader.AtEnd()) fields.emplace_back(reader.Next());
    EXPECT_EQ(fields, test.fields) << test.text;
    EXPECT_THROW(reader.Next(), RuntimeError);
  }
}

TEST(TextFile, NumbersAreWholeFields) {
  for (const auto& [text, number] : std::vector<std::pair<std::string, double>>{
           {"", 0}, {"12", 12}, {"-3.5", -3.5}, {"+.5 ", 0.5}, {"7.\t", 7}, {std::string(20, '9'), 1e20}}) {
    EXPECT_EQ(stage::NumberOf(text), number) << text;
  }
  EXPECT_FALSE(std::signbit(stage::NumberOf("-0")));
  for (const std::string text : {"-", ".", "1 2", "1.2.3", "--1", "1e3", "0x1", "inf", "1\n"}) {
    EXPECT_THROW(stage::NumberOf(text), RuntimeError) << text;
  }
  EXPECT_THROW(stage::NumberOf(std::string(310, '9')), RuntimeError);
}

TEST(TextFile, TwoWritersAtOnceLeaveItWhole) {
  const stage::TempFolder folder(tests::kAnyLetters);
  const auto file = folder.Path() / "a";
  const auto text = [](char letter, int turn) { return std::string(std::size_t(1000 + turn), letter) + '.'; };
  constexpr int kTurns = 60;
  stage::WriteWhole(file, text('a', 0));
  const auto writer = [&](char letter) {
    for (int turn = 0; turn < kTurns; ++turn) stage::WriteWhole(file, text(letter, turn));
  };
  std::jthread first(writer, 'a');
  std::jthread second(writer, 'b');
  std::string last;
  while (last.size() < 1000 + kTurns) {
    last = stage::ReadWhole(file, 1 << 20);
    ASSERT_GT(last.size(), 1000U);
    ASSERT_EQ(last, text(last[0], int(last.size()) - 1001));
  }
  first.join();
  second.join();
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

}  // namespace
