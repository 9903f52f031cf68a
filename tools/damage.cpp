// korvane-damage [TIMES] [SEED]: puts noise, cut-off bytes and altered bytes in the place of each file that
// the program reads, TIMES each, and every time plays the whole program over it: start, play, a record, the
// end. Exits 1 if a run crashed, hung, failed, said more than one line or lost a record.
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <iostream>

#include "assets/assets.h"
#include "records/store.h"
#include "stage/sdl/artist.h"
#include "tools/bot.h"
#include "tools/files.h"
#include "tools/temp_folder.h"

namespace {

using namespace korvane;
using tools::ReadFile;
using tools::WriteFile;
using Random = std::mt19937;

constexpr const char* kRecords = "kv_his.dat";
constexpr const char* kKept = "kv_his.old";
constexpr const char* kLevel = "levels/1.sav";

std::size_t Below(std::size_t end, Random& any) { return any() % std::max<std::size_t>(end, 1); }

std::string Noise(const std::string&, Random& any) {
  constexpr std::size_t kMostNoise = 4096;
  std::string bytes(Below(kMostNoise, any), '\0');
  for (char& byte : bytes) byte = static_cast<char>(any());
  return bytes;
}

std::string CutOff(const std::string& whole, Random& any) {
  return whole.substr(0, Below(whole.size(), any));
}

/// Some bytes become others, some digits other digits.
std::string Altered(const std::string& whole, Random& any) {
  std::string bytes = whole;
  constexpr std::string_view kTelling = "0123456789,.-+\"\r\n pisca";
  const bool digits_only = any() % 2 == 0;
  for (std::size_t left = 1 + Below(8, any); left > 0; --left) {
    char& byte = bytes[Below(bytes.size(), any)];
    if (byte >= '0' && byte <= '9') {
      byte = kTelling[Below(10, any)];
    } else if (!digits_only) {
      byte = any() % 2 == 0 ? kTelling[Below(kTelling.size(), any)] : static_cast<char>(any());
    }
  }
  return bytes;
}

using Damage = std::string(const std::string&, Random&);

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

/// Whole files in the folder, but for one that is damaged. Gives its bytes.
std::string Prepare(const std::filesystem::path& folder, const char* file, Damage& damage, Random& any) {
  std::string records;
  for (int row = 10; row > 0; --row)
    records += "\"Nome " + std::to_string(row) + "\"\r\n" + std::to_string(100 * row) + "\r\n";
  WriteFile(folder / kRecords, records);
  WriteFile(folder / "config.ini", "; mine\r\n[SETUP]\r\nVkorv=300\r\n");
  WriteFile(folder / kLevel, ReadFile(stage::machine::OwnFolder() / kLevel));
  std::string bytes = damage(ReadFile(folder / file), any);
  WriteFile(folder / file, bytes);
  return bytes;
}

bool TryAll(int times, std::uint32_t seed) {
  const tools::TempFolder folder;
  folder.TakeProgramFolders(stage::machine::OwnFolder());
  Random any(seed);
  Count count;
  for (const char* file : {kRecords, "config.ini", kLevel}) {
    for (Damage* const damage : {Noise, CutOff, Altered}) {
      for (int i = 0; i < times && count.Well(); ++i) {
        const std::string bytes = Prepare(folder.Path(), file, *damage, any);
        Run(folder.Path(), std::uint32_t(any()), count);
        if (count.Well()) continue;
        std::cout << "at fault: " << file << " with these bytes:\n"
                  << bytes << "\nsaid: " << ReadFile(folder.Path() / "errors") << '\n';
      }
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
    const int times = count > 1 ? std::stoi(arguments[1]) : 1000;
    const auto seed = count > 2 ? std::uint32_t(std::stoul(arguments[2])) : std::random_device{}();
    return TryAll(times, seed) ? 0 : 1;
  } catch (const std::exception& error) {
    std::cerr << "korvane-damage: " << error.what() << '\n';
    return 1;
  }
}
