#include "records/store.h"

#include <gtest/gtest.h>

#include "records/codepage.h"
#include "stage/files/path_text.h"
#include "tests/mesa.h"

namespace {

using namespace korvane;
using Rows = std::vector<std::pair<std::string, Double>>;

std::string Row(const std::string& name, const std::string& score) {
  return '"' + name + "\"\r\n" + score + "\r\n";
}

/// Rows `first` to 10 of a whole table.
std::string RowsFrom(int first) {
  std::string text;
  for (int r = first; r <= 10; ++r) text += Row("N" + std::to_string(r), std::to_string(200 - r));
  return text;
}

Rows ReadRows(Module1& modulo) {
  Rows rows;
  for (Integer r = 1; r <= 10; r = r + 1) rows.emplace_back(modulo.RecNome(r), modulo.RecPontos(r));
  return rows;
}

class Store : public testing::Test {
 protected:
  Store() { modulo.AppPath = stage::TextOf(folder.Path()); }

  std::filesystem::path Path(const char* name) const { return folder.Path() / name; }
  std::size_t Files() const {
    return std::size_t(std::distance(std::filesystem::directory_iterator(folder.Path()), {}));
  }
  /// What the player is told.
  template <class Act>
  std::string Said(Act act) {
    testing::internal::CaptureStderr();
    act();
    return testing::internal::GetCapturedStderr();
  }
  template <class Act>
  std::size_t LinesSaid(Act act) {
    return std::size_t(std::ranges::count(Said(act), '\n'));
  }

  stage::TempFolder folder{tests::kAnyLetters};
  Module1 modulo;
};

TEST_F(Store, AMissingAndAnEmptyFileAreMade) {
  std::string made;
  for (int r = 1; r <= 10; ++r) made += "\x22\x2E\x22\x0D\x0A\x30\x0D\x0A";
  for (const bool empty : {false, true}) {
    std::filesystem::remove(Path("kv_his.dat"));
    if (empty) tests::WriteFile(Path("kv_his.dat"), "");
    Module1 first;
    first.AppPath = modulo.AppPath;
    EXPECT_EQ(LinesSaid([&] { Getrecords(first); }), 0U);
    EXPECT_EQ(ReadRows(first), Rows(10));
    EXPECT_EQ(tests::ReadFile(Path("kv_his.dat")), made);
    Module1 second;
    second.AppPath = modulo.AppPath;
    Getrecords(second);
    EXPECT_EQ(ReadRows(second), Rows(10, {".", 0}));
    // The run that made the file has no names to store but the new one.
    first.RecNome(1) = "Eu";
    first.RecPontos(1) = 5;
    GravaRecords(first);
    std::string stored = Row("Eu", "5");
    for (int r = 2; r <= 10; ++r) stored += Row("", "0");
    EXPECT_EQ(tests::ReadFile(Path("kv_his.dat")), stored);
    EXPECT_EQ(Files(), 1U);
  }
}

struct Form {
  const char* what;
  std::string bytes;
  Rows rows;
  bool damaged = false;
};

TEST_F(Store, ReadsWhatItCanAndKeepsWhatIsDamaged) {
  const auto rows = [](Rows first) {
    for (int r = int(first.size()) + 1; r <= 10; ++r) first.emplace_back("N" + std::to_string(r), 200 - r);
    return first;
  };
  const std::string n998(998, 'n');
  const Form forms[] = {
      {"own form", RowsFrom(1), rows({})},
      {"one line a row", "\"Ana, a Boa\",50\r\nZeca , 40\nRui\r\n  30  \r" + RowsFrom(4),
       rows({{"Ana, a Boa", 50}, {"Zeca ", 40}, {"Rui", 30}})},
      {"quoted scores and blanks", "  \"Ana\" ,\t\"70\" \r\n" + RowsFrom(2), rows({{"Ana", 70}})},
      {"out of order, fractions, signs, the point",
       Row("a", "12.75") + Row("b", "9999999") + Row("c", "-0.5") + Row("d", "+7") + Row("", "") +
           RowsFrom(6),
       rows({{"a", 12.75}, {"b", 9999999}, {"c", -0.5}, {"d", 7}, {"", 0}})},
      {"code page", Row("Jo\xE3o \x80 \x9F", "1") + RowsFrom(2), rows({{"João € Ÿ", 1}})},
      {"more than the rows", RowsFrom(1) + Row("x", "lots") + std::string(200'000, 'x'), rows({})},
      {"no end of the last line", RowsFrom(1).substr(0, RowsFrom(1).size() - 2), rows({})},
      {"longest line", Row(n998, "1") + RowsFrom(2), rows({{n998, 1}})},
      {"line too long", Row("a", "1") + Row(n998 + "n", "2") + RowsFrom(3), {{"a", 1}}, true},
      {"row too long", Row("a", "1") + "\"" + n998 + "\",2\r\n" + RowsFrom(3), {{"a", 1}}, true},
      {"ends early", Row("a", "1") + "\"b\"\r\n", {{"a", 1}, {"b", 0}}, true},
      {"ends inside a name", Row("a", "1") + "\"b", {{"a", 1}, {"b", 0}}, true},
      {"score no number", Row("a", "1") + Row("b", "2x") + RowsFrom(3), {{"a", 1}, {"b", 0}}, true},
      {"score a word", Row("a", "many") + RowsFrom(2), {{"a", 0}}, true},
      {"score past all bounds",
       Row("a", "1") + Row("b", std::string(400, '9')) + RowsFrom(3),
       {{"a", 1}, {"b", 0}},
       true},
      {"only line ends", "\r\n\r\n\r\n", {}, true},
      {"noise", std::string(70'000, '\0'), {}, true}};
  for (const Form& form : forms) {
    SCOPED_TRACE(form.what);
    tests::WriteFile(Path("kv_his.dat"), form.bytes);
    std::filesystem::remove(Path("kv_his.old"));
    Module1 read;
    read.AppPath = modulo.AppPath;
    EXPECT_EQ(LinesSaid([&] { Getrecords(read); }), 0U);
    Rows expected = form.rows;
    expected.resize(10);
    EXPECT_EQ(ReadRows(read), expected);
    EXPECT_EQ(tests::ReadFile(Path("kv_his.dat")), form.bytes);
    EXPECT_EQ(Files(), 1U);
    EXPECT_EQ(LinesSaid([&] { GravaRecords(read); }), 0U);
    EXPECT_EQ(std::filesystem::exists(Path("kv_his.old")), form.damaged);
    if (form.damaged) {
      EXPECT_EQ(tests::ReadFile(Path("kv_his.old")), form.bytes);
    }
    // What was kept is kept still when the next record comes.
    GravaRecords(read);
    if (form.damaged) {
      EXPECT_EQ(tests::ReadFile(Path("kv_his.old")), form.bytes);
    }
    Module1 again;
    again.AppPath = modulo.AppPath;
    Getrecords(again);
    EXPECT_EQ(ReadRows(again), expected);
  }
}

/// The row comes first, and the last one falls out of the table.
void Insert(Module1& modulo, const Rows::value_type& row) {
  for (Integer r = 10; r > 1; r = r - 1) {
    modulo.RecNome(r) = modulo.RecNome(r - 1);
    modulo.RecPontos(r) = modulo.RecPontos(r - 1);
  }
  modulo.RecNome(1) = row.first;
  modulo.RecPontos(1) = row.second;
}

TEST_F(Store, KeepsTheTableOfAnotherCopyOfTheGame) {
  const auto kept = [&] { return std::filesystem::exists(Path("kv_his.old")); };
  tests::WriteFile(Path("kv_his.dat"), RowsFrom(1));
  Getrecords(modulo);
  Module1 other = modulo;
  Insert(other, {"\"Ela\"", 500});
  GravaRecords(other);
  GravaRecords(other);
  EXPECT_FALSE(kept());
  const std::string table = tests::ReadFile(Path("kv_his.dat"));
  // Rows that have the name of her record or its score, not both.
  const Rows own[] = {{{"Eu", 400}}, {{"Eu", 500}}, {{"'Ela'", 400}}, {{"'Ela'", 400}, {"Eu", 500}}};
  for (const Rows& rows : own) {
    std::filesystem::remove(Path("kv_his.old"));
    tests::WriteFile(Path("kv_his.dat"), table);
    Module1 mine = modulo;
    for (const auto& row : rows) Insert(mine, row);
    GravaRecords(mine);
    ASSERT_TRUE(kept()) << rows[0].first << rows[0].second;
    EXPECT_EQ(tests::ReadFile(Path("kv_his.old")), table);
  }
}

TEST_F(Store, LeavesAFileThatCannotBeReadToItsEnd) {
  tests::WriteFile(Path("kv_his.dat"), "damaged");
  std::filesystem::resize_file(Path("kv_his.dat"), (64 << 20) + 1);
  const std::string said = Said([&] { GravaRecords(modulo); });
  EXPECT_EQ(said, "korvane: cannot read " + stage::TextOf(Path("kv_his.dat")) +
                      "; the records hold for this run only\n");
  EXPECT_GT(std::filesystem::file_size(Path("kv_his.dat")), 64U << 20);
  EXPECT_EQ(Files(), 1U);
}

TEST_F(Store, WritesToTheByte) {
  const Rows rows{{"José, o \"Rápido\"", 123456}, {"€ Ÿ", 99999}, {"  ", 12.75}, {"", -3}, {"x,", 9999999}};
  for (Integer r = 1; r <= 5; r = r + 1) {
    modulo.RecNome(r) = rows[std::size_t(r - 1)].first;
    modulo.RecPontos(r) = rows[std::size_t(r - 1)].second;
  }
  GravaRecords(modulo);
  std::string expected =
      "\"Jos\xE9, o 'R\xE1pido'\"\r\n123456\r\n\"\x80 \x9F\"\r\n99999\r\n\"  \"\r\n12.75\r\n\"\"\r\n-3\r\n"
      "\"x,\"\r\n9999999\r\n";
  for (int r = 6; r <= 10; ++r) expected += "\"\"\r\n0\r\n";
  EXPECT_EQ(tests::ReadFile(Path("kv_his.dat")), expected);
}

TEST_F(Store, WhatCannotBeWrittenIsSaidOnce) {
  struct Case {
    const char* what;
    const char* folder_at;
    const char* damaged;
  };
  for (const Case& test : {Case{"a folder in its place", "kv_his.dat", nullptr},
                           Case{"nothing to keep the damaged file in", "kv_his.old", "\"a\"\r\nmuch"}}) {
    SCOPED_TRACE(test.what);
    stage::TempFolder here(tests::kAnyLetters);
    modulo.AppPath = stage::TextOf(here.Path());
    std::filesystem::create_directories(here.Path() / test.folder_at / "full");
    if (test.damaged != nullptr) tests::WriteFile(here.Path() / "kv_his.dat", test.damaged);
    EXPECT_EQ(LinesSaid([&] { Getrecords(modulo); }), 0U);
    modulo.RecNome(1) = "Eu";
    EXPECT_EQ(Said([&] { GravaRecords(modulo); }), "korvane: cannot write " +
                                                       stage::TextOf(here.Path() / test.folder_at) +
                                                       "; the records hold for this run only\n");
    EXPECT_EQ(modulo.RecNome(1), "Eu");
    EXPECT_TRUE(std::filesystem::is_directory(here.Path() / test.folder_at / "full"));
    if (test.damaged != nullptr) {
      EXPECT_EQ(tests::ReadFile(here.Path() / "kv_his.dat"), test.damaged);
    }
    EXPECT_EQ(std::count_if(std::filesystem::directory_iterator(here.Path()), {},
                            [](const auto& entry) { return entry.path().extension() == ".tmp"; }),
              0);
  }
  modulo.AppPath = stage::TextOf(folder.Path() / "nowhere");
  EXPECT_EQ(LinesSaid([&] { Getrecords(modulo); }), 1U);
  EXPECT_EQ(LinesSaid([&] { GravaRecords(modulo); }), 1U);
}

}  // namespace
