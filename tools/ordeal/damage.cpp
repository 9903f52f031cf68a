// korvane-damage [TIMES] [SEED]: damages each file that the program reads, TIMES each, as the fuzzers of its
// readers do, and every time plays the whole program over it: start, play, a record, the end. Exits 1 if a
// run crashed, hung, failed, said more than one line or lost a record.
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <iostream>

#include "assets/assets.h"
#include "oficina/bot/bot.h"
#include "records/store.h"
#include "stage/files/temp_folder.h"
#include "stage/machines/sdl/artist.h"
#include "tools/files.h"
#include "tools/ordeal/mutator.h"

namespace {

using namespace korvane;
using tools::ReadFile;
using tools::WriteFile;

constexpr const char* kRecords = "kv_his.dat";
constexpr const char* kKept = "kv_his.old";
constexpr const char* kLevel = "levels/1.sav";

/// Plays for a while, then loses the ball with a score that makes a record, and leaves.
void Play(const std::filesystem::path& folder, std::uint32_t seed) {
  constexpr int kInPlay = 64 * 20;  // beats
  constexpr int kLostAt = 9000;
  stage::ScriptedSetup setup;
  setup.folder = folder;
  stage::sdl::Artist artist;
  stage::ScriptedPlatform platform(setup, artist);
  Programa programa(platform, Assets());
  programa.Palco.Draws.Fix(seed);
  bot::Bot bot(programa, platform, seed);
  int beats = 0;
  platform.Director = [&] {
    const stage::Form* const form = programa.Palco.ActiveForm();
    if (form != nullptr && form->Name() == "game" && ++beats >= kInPlay) {
      game& jogo = *programa.game.Last();
      if (beats == kInPlay) {
        jogo.Module1.Pontos = 1'000'000;
        jogo.Vidas = 1;
        jogo.BolaPresa = false;
        jogo.ball.Top = kLostAt;
      } else if (jogo.Vidas > 1) {  // the next game stands ready
        platform.Send(stage::KeyPressed{stage::key::kEsc, 0});
      }
    }
    bot.Act();
  };
  programa.Corre();
}

[[noreturn]] void RunAsProgram(const std::filesystem::path& folder, std::uint32_t seed) {
  constexpr unsigned kLongest = 60;  // seconds; a run takes a small part of one
  alarm(kLongest);
  dup2(open((folder / "errors").c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644), STDERR_FILENO);
  try {
    Play(folder, seed);
  } catch (const std::exception& error) {
    std::cerr << "korvane: " << error.what() << '\n';
    _exit(1);
  }
  _exit(0);
}

struct Count {
  int runs = 0;
  int crashed = 0;
  int hung = 0;
  int failed = 0;
  int talked = 0;
  int lost = 0;
  int stored = 0;

  bool Well() const { return crashed + hung + failed + talked + lost == 0; }
};

/// Without a new record the file is as it was; with one it is whole, and what was damaged lies beside it.
void LookAtRecords(const std::filesystem::path& folder, const std::string& before, Count& count) {
  const auto whole = [](const std::string& bytes) {
    try {
      Module1 read;
      LeTabela(read, bytes);
      return true;
    } catch (const RuntimeError&) {
      return false;
    }
  };
  const std::string after = ReadFile(folder / kRecords);
  if (after == before) return;
  ++count.stored;
  const bool kept = before.empty() || whole(before) || ReadFile(folder / kKept) == before;
  count.lost += whole(after) && kept ? 0 : 1;
}

void Run(const std::filesystem::path& folder, std::uint32_t seed, Count& count) {
  std::filesystem::remove(folder / kKept);
  const std::string before = ReadFile(folder / kRecords);
  const pid_t child = fork();
  if (child < 0) throw std::runtime_error("no process");
  if (child == 0) RunAsProgram(folder, seed);
  int status = 0;
  waitpid(child, &status, 0);
  ++count.runs;
  const bool hung = WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM;
  count.hung += hung ? 1 : 0;
  count.crashed += WIFSIGNALED(status) && !hung ? 1 : 0;
  count.failed += WIFEXITED(status) && WEXITSTATUS(status) != 0 ? 1 : 0;
  const std::string said = ReadFile(folder / "errors");
  count.talked += std::ranges::count(said, '\n') > 1 ? 1 : 0;
  LookAtRecords(folder, before, count);
}

void PutWholeFiles(const std::filesystem::path& folder) {
  std::string records;
  for (int row = 10; row > 0; --row)
    records += "\"Nome " + std::to_string(row) + "\"\r\n" + std::to_string(100 * row) + "\r\n";
  WriteFile(folder / kRecords, records);
  WriteFile(folder / "config.ini", "; mine\r\n[SETUP]\r\nVkorv=300\r\n");
  WriteFile(folder / kLevel, ReadFile(stage::machine::OwnFolder() / kLevel));
}

bool TryAll(int times, std::uint32_t seed) {
  const stage::TempFolder folder;
  folder.TakeProgramFolders(stage::machine::OwnFolder());
  PutWholeFiles(folder.Path());
  Count count;
  for (const char* file : {kRecords, "config.ini", kLevel}) {
    const std::vector<std::string> whole{ReadFile(folder.Path() / file)};
    tools::Mutator damaged(whole, seed);
    for (int i = 0; i < times && count.Well(); ++i) {
      const std::string bytes = damaged.Next();
      PutWholeFiles(folder.Path());
      WriteFile(folder.Path() / file, bytes);
      Run(folder.Path(), seed + std::uint32_t(i), count);
      if (count.Well()) continue;
      std::cout << "at fault: " << file << " with these bytes:\n"
                << bytes << "\nsaid: " << ReadFile(folder.Path() / "errors") << '\n';
    }
  }
  std::cout << "seed " << seed << ": " << count.runs << " runs, crashed " << count.crashed << ", hung "
            << count.hung << ", failed " << count.failed << ", said more than a line " << count.talked
            << ", lost a record " << count.lost << "; stored a record " << count.stored << '\n';
  return count.Well();
}

}  // namespace

int main(int count, char** arguments) {
  try {
    const int times = count > 1 ? std::stoi(arguments[1]) : 3000;
    const auto seed = count > 2 ? std::uint32_t(std::stoul(arguments[2])) : std::random_device{}();
    return TryAll(times, seed) ? 0 : 1;
  } catch (const std::exception& error) {
    std::cerr << "korvane-damage: " << error.what() << '\n';
    return 1;
  }
}
