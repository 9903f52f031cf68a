// Kills writers at random moments, over and over, and looks at the files after each time: those of the
// records and the speed, "korvane-killtest TIMES", or those of levels that are drawn, "korvane-killtest
// drawings TIMES". Exits 1 at the first file that is neither the old nor the new one.
#include <algorithm>
#include <iostream>
#include <optional>
#include <random>
#include <string>

#include "records/store.h"
#include "stage/files/path_text.h"
#include "stage/files/profile.h"
#include "stage/files/temp_folder.h"
#include "stage/machines/machine.h"
#include "tools/files.h"
#include "tools/ordeal/kill_drawings.h"
#include "tools/ordeal/killing.h"

namespace {

using namespace korvane;
using tools::ReadFile;

constexpr std::chrono::milliseconds kLongestLife(15);

/// The name in row `r` of the table that a writer stores at a turn. Tables differ in length.
std::string NameOf(int writer, int turn, int r) {
  return std::string(std::size_t(turn % 17), '.') + std::to_string(writer) + ' ' + std::to_string(turn) +
         ' ' + std::to_string(r);
}

std::string RecordsOf(int writer, int turn) {
  std::string text;
  for (int r = 1; r <= 10; ++r)
    text += '"' + NameOf(writer, turn, r) + "\"\r\n" + std::to_string(turn) + "\r\n";
  return text;
}

int SpeedOf(int writer, int turn) { return turn % 15000 * 2 + writer; }

std::string ConfigOf(int writer, int turn) {
  return "; mine\n[SETUP]\nVkorv=" + std::to_string(SpeedOf(writer, turn)) + "\n[OTHER]\nVkorv=1\n";
}

/// How far a writer has come, as it tells on its standard output.
struct Told {
  int records = 0;
  int config = 0;
};

/// Until it is killed.
[[noreturn]] void Write(const std::filesystem::path& folder, int writer, int first) {
  stage::machine::WriteOutputAsIs();
  Module1 modulo;
  modulo.AppPath = stage::TextOf(folder);
  Told told{first - 1, first - 1};
  tools::Tell(told);
  for (int turn = first;; ++turn) {
    for (Integer r = 1; r <= 10; r = r + 1) {
      modulo.RecNome(r) = NameOf(writer, turn, r);
      modulo.RecPontos(r) = turn;
    }
    GravaRecords(modulo);
    told.records = turn;
    tools::Tell(told);
    stage::WritePrivateProfileStringA("SETUP", "Vkorv", std::to_string(SpeedOf(writer, turn)),
                                      folder / "config.ini");
    told.config = turn;
    tools::Tell(told);
  }
}

class Writer : public tools::Victim<Told> {
 public:
  Writer(const std::filesystem::path& folder, int number, int first)
      : Victim({"write", stage::TextOf(folder), std::to_string(number), std::to_string(first)}),
        number_(number) {}

  /// The last turn that was done, or the one that was under way.
  bool MayHaveLeft(const std::string& records) const {
    return records == RecordsOf(number_, Turns()) || records == RecordsOf(number_, Turns() + 1);
  }
  bool MayHaveLeftConfig(const std::string& config) const {
    return config == ConfigOf(number_, Has().config) || config == ConfigOf(number_, Has().config + 1);
  }
  int Turns() const { return Has().records; }

 private:
  int number_;
};

struct Count {
  int rounds = 0;
  int turns = 0;
  int left_behind = 0;
};

/// What another writer's table was kept as is whole too, if there is any.
bool KeptIsWhole(const std::string& kept) {
  if (kept.empty()) return true;
  Module1 read;
  LeTabela(read, kept);
  const int turn = int(read.RecPontos(1));
  return kept == RecordsOf(0, turn) || kept == RecordsOf(1, turn);
}

/// One or two writers at a time; false if a file is not whole. With two, one may have had the last word on
/// each file.
bool Round(const std::filesystem::path& folder, std::mt19937& any, Count& count) {
  const std::filesystem::path records = folder / "kv_his.dat";
  const std::filesystem::path config = folder / "config.ini";
  const std::string old_records = ReadFile(records);
  const std::string old_config = ReadFile(config);
  const int first = count.turns + 2;
  Writer one(folder, 0, first);
  std::optional<Writer> other;
  if (count.rounds % 2 == 1) other.emplace(folder, 1, first);
  tools::LetLive(any, kLongestLife);
  one.Kill();
  if (other) other->Kill();
  const std::string new_records = ReadFile(records);
  const std::string new_config = ReadFile(config);
  const auto of_other = [&](auto left, const std::string& text) { return other && ((*other).*left)(text); };
  const bool whole = new_records == old_records || one.MayHaveLeft(new_records) ||
                     of_other(&Writer::MayHaveLeft, new_records);
  const bool config_whole = new_config == old_config || one.MayHaveLeftConfig(new_config) ||
                            of_other(&Writer::MayHaveLeftConfig, new_config);
  const bool kept_whole = KeptIsWhole(ReadFile(folder / "kv_his.old"));
  if (!kept_whole) std::cerr << "kv_his.old is not whole\n";
  if (!whole) std::cerr << "kv_his.dat is neither old nor new:\n" << new_records;
  if (!config_whole) std::cerr << "config.ini is neither old nor new:\n" << new_config;
  const bool old_stays = new_records == old_records && one.Turns() >= first;
  if (old_stays) std::cerr << "a record that was stored is gone\n";
  count.turns = std::max(one.Turns(), other ? other->Turns() : 0);
  return whole && kept_whole && config_whole && !old_stays;
}

bool Kill(int times) {
  constexpr int kMostLeft = 3;  // one for each file that is ever written
  const stage::TempFolder folder("José 日本");
  std::mt19937 any(std::random_device{}());
  tools::WriteFile(folder.Path() / "config.ini", ConfigOf(0, 0));
  tools::WriteFile(folder.Path() / "kv_his.dat", RecordsOf(0, 0));
  Count done;
  std::ptrdiff_t most_left = 0;
  for (; done.rounds < times; ++done.rounds) {
    if (!Round(folder.Path(), any, done)) return false;
    const auto left = tools::FilesUnderWay(folder.Path());
    done.left_behind += left > 0 ? 1 : 0;
    most_left = std::max(most_left, left);
  }
  std::cout << times << " times killed, " << done.left_behind << " left a file under way, " << done.turns
            << " tables written, at most " << most_left << " files left at once\n";
  return most_left <= kMostLeft;
}

}  // namespace

int main(int count, char** arguments) {
  try {
    if (count == 5 && std::string(arguments[1]) == "write")
      Write(stage::PathOf(arguments[2]), std::stoi(arguments[3]), std::stoi(arguments[4]));
    if (count == 4 && std::string(arguments[1]) == "draw")
      tools::WriteDrawings(stage::PathOf(arguments[2]), std::stoi(arguments[3]));
    if (count == 3 && std::string(arguments[1]) == "drawings")
      return tools::KillDrawings(std::stoi(arguments[2])) ? 0 : 1;
    return Kill(count > 1 ? std::stoi(arguments[1]) : 500) ? 0 : 1;
  } catch (const std::exception& error) {
    std::cerr << "korvane-killtest: " << error.what() << '\n';
    return 1;
  }
}
