#include <gtest/gtest.h>

#include "records/FrmEntrarecord.h"
#include "records/FrmMostraRecords.h"
#include "records/store.h"
#include "tests/player.h"

namespace {

using namespace tests;

using Row = std::pair<std::string, Double>;

constexpr stage::Pixel kYellow = 65535;
constexpr stage::Pixel kGrey = 224 + 224 * 256 + 224 * 65536;

/// A file of ten rows: the given scores, 0 for those that are left.
std::string RecordsFile(std::vector<std::string> scores) {
  scores.resize(10, "0");
  std::string text;
  for (std::size_t r = 0; r < 10; ++r) text += "\"R" + std::to_string(r + 1) + "\"\r\n" + scores[r] + "\r\n";
  return text;
}

class Placar : public Mesa {
 public:
  explicit Placar(const std::vector<std::string>& scores)
      : Mesa({{"levels/1.sav", kQuietLevel}, {"kv_his.dat", RecordsFile(scores)}}) {}

  Module1& M() { return programa->Module1; }
  Move Key(int code) {
    return [this, code] { Press(code); };
  }
  /// At the table: the row in yellow, 0 for none; the table closes.
  Move SeeTable(int yellow) {
    return [this, yellow] {
      EXPECT_EQ(FormName(), "FrmMostraRecords");
      const auto labels = All<stage::Label>(*Palco().ActiveForm());
      ASSERT_EQ(labels.size(), 20U);
      for (int r = 1; r <= 10; ++r) {
        for (const int column : {0, 10}) {
          EXPECT_EQ(labels[std::size_t(column + r - 1)]->ForeColor.Get(), r == yellow ? kYellow : kGrey) << r;
        }
      }
      Press(27);
    };
  }
  /// At the name entry: the name is typed and the key pressed.
  std::vector<Move> Enter(const std::string& name, int code) {
    return {[this, name] {
              EXPECT_EQ(FormName(), "FrmEntrarecord");
              EXPECT_EQ(Palco().CursorCounter(), 0);
              Type(name);
            },
            Key(code)};
  }
  static std::vector<Row> Rows(Module1& modulo) {
    std::vector<Row> rows;
    for (Integer r = 1; r <= 10; r = r + 1) rows.emplace_back(modulo.RecNome(r), modulo.RecPontos(r));
    return rows;
  }
};

std::vector<Move> operator+(std::vector<Move> first, Move then) {
  first.push_back(std::move(then));
  return first;
}

struct Entry {
  const char* what;
  std::vector<std::string> scores;
  int points;
  const char* name;
  int key;
  int row;  // of the new record, 0 for none
};

TEST(NewRecord, GoesIntoItsRow) {
  const std::vector<std::string> full{"90", "80", "70", "60", "50", "40", "30", "20", "15", "10"};
  const Entry entries[] = {{"first", {}, 5, "Eu", 13, 1},
                           {"above a higher fraction", {"5.9", "3"}, 6, "Eu", 13, 1},
                           {"not above its own whole part", {"6.9", "3"}, 6, "Eu", 13, 2},
                           {"negative fraction", {"7", "-0.5"}, 0, "Eu", 13, 2},
                           {"below an equal score", {"90", "80", "80", "70"}, 80, "Eu", 13, 4},
                           {"in the middle", full, 55, "Eu", 13, 5},
                           {"last row", full, 11, "Eu", 13, 10},
                           {"out of order", {"1", "90"}, 50, "Eu", 13, 1},
                           {"blanks are a name", full, 95, "   ", 13, 1},
                           {"Enter without a name", full, 95, "", 13, 0},
                           {"Esc after a name", full, 95, "Eu", 27, 0}};
  for (const Entry& entry : entries) {
    SCOPED_TRACE(entry.what);
    Placar placar(entry.scores);
    placar.M().Pontos = entry.points;
    placar.M().RecNovo = 7;
    std::vector<Row> expected = Placar::Rows(placar.M());
    if (entry.row > 0) {
      expected.emplace(expected.begin() + entry.row - 1, entry.name, entry.points);
      expected.pop_back();
    }
    placar.Palco().ShowCursor(true);
    Play(placar, placar.Enter(entry.name, entry.key) + placar.SeeTable(entry.row),
         [&] { EXPECT_TRUE(placar.Jogo().VerificaRecord()); });
    EXPECT_EQ(placar.M().RecNovo, entry.row);
    EXPECT_EQ(Placar::Rows(placar.M()), expected);
    Module1 stored;
    stored.AppPath = placar.M().AppPath;
    Getrecords(stored);
    EXPECT_EQ(Placar::Rows(stored), expected);
  }
}

TEST(NameEntry, TakesWhatTheFileCanHold) {
  const std::pair<const char*, const char*> typed[] = {{"Ação, Ünder", "Ação, Ünder"},
                                                       {"aΩb😀c漢", "abc"},
                                                       {"\"O\" d'Água", "\"O\" d'Água"},
                                                       {"1234567890ÀÁÂÃÄÅÆÇÈÉÊËÌ", "1234567890ÀÁÂÃÄÅÆÇÈÉÊË"},
                                                       {"tab\tbell\a", "tabbell"}};
  for (const auto& [text, name] : typed) {
    Placar placar({});
    placar.M().Pontos = 5;
    placar.Palco().ShowCursor(true);
    Play(placar, placar.Enter(text, 13) + placar.SeeTable(1), [&] { placar.Jogo().VerificaRecord(); });
    EXPECT_EQ(placar.M().NomeRecord, name);
  }
}

TEST(RecordsTable, ShowsTheRowsAsTheyAre) {
  const std::string most(308, '9');
  Placar placar({"9999999", "12.75", "-0.5", "3000000000", "9999999.5", "-0", most, "007"});
  placar.M().RecNome(1) = std::string(1000, 'W');
  placar.platform->Look(true);
  const std::string shown[] = {".", "12", "-1", "3000000000", "9999999", "0", most, "7", "0", "0"};
  const auto look = [&] {
    const auto labels = All<stage::Label>(*placar.Palco().ActiveForm());
    ASSERT_EQ(labels.size(), 20U);
    for (std::size_t r = 0; r < 10; ++r) {
      EXPECT_EQ(labels[r]->Caption.Get(), placar.M().RecNome(Integer(r + 1)));
      const std::string& text = labels[10 + r]->Caption.Get();
      // No Double lies nearer to the 308 nines than the one that is written as a one with noughts.
      EXPECT_EQ(r == 6 ? text.substr(0, 2) + std::to_string(text.size()) : text, r == 6 ? "10309" : shown[r]);
    }
    placar.Press(13);
  };
  Play(placar, {look}, [&] { placar.programa->FrmMostraRecords.Show(stage::kModal); });
}

}  // namespace
