// korvane-soak [HOURS] [SEED]: a bot plays for hours of virtual time, across all series, while the invariants
// of the game are watched at every beat. korvane-soak --levels [FIRST [LAST [SEED]]]: the bot plays each of
// these levels, all if none are named, to its end in series A and D, many times. It tells how they played,
// and fails if one plays as no level should.
#include <array>
#include <chrono>
#include <iomanip>
#include <iostream>
#include <limits>
#include <random>

#include "oficina/bot/level_plays.h"
#include "oficina/bot/session.h"
#include "stage/files/temp_folder.h"
#include "stage/machines/machine.h"

namespace {

using korvane::game;
using stage::Double;
using stage::Moment;

struct Figures {
  int sessions = 0;
  int games = 0;
  std::array<int, 4> levels{};  // left, by series
  std::int64_t best = 0;
};

/// Plays until `end` or until the bot leaves the program. Gives the time that passed.
Moment PlayOn(const std::filesystem::path& folder, std::uint32_t seed, Moment end, Figures& figures) {
  constexpr Moment kLongestSession = std::chrono::hours(3);
  bot::Session session(folder, seed);
  std::int64_t gone = -1;
  std::int64_t points = 0;
  int serie = 0;
  bool leaving = false;
  session.Run([&](game& jogo) {
    const Moment now = session.platform.Now();
    if (now >= end) throw bot::Enough{};
    const bool in_play = session.programa.Palco.ActiveForm()->Name() == "game";
    if (in_play && jogo.FasesRetiradas != gone && jogo.Box.Exists(jogo.ProximoBox)) {
      ++figures.levels[std::size_t(serie)];
      if (jogo.Serie == 0 && jogo.FaseAtual == 1) bot::GoTo(jogo, figures.games % 4, 1);
      gone = jogo.FasesRetiradas;
      serie = jogo.Serie;
    }
    figures.games += points > 0 && jogo.Module1.Pontos == 0 ? 1 : 0;
    points = jogo.Module1.Pontos;
    figures.best = std::max(figures.best, points);
    if (!leaving && in_play && now >= kLongestSession) {
      leaving = true;
      session.platform.Send(stage::KeyPressed{stage::key::kEsc, 0});
    }
  });
  ++figures.sessions;
  return session.platform.Now();
}

int Soak(const stage::TempFolder& folder, Double hours, std::uint32_t seed) {
  const auto whole =
      std::chrono::duration_cast<Moment>(std::chrono::duration<Double, std::ratio<3600>>(hours));
  Figures figures;
  Moment passed{};
  try {
    while (passed < whole) {
      passed += PlayOn(folder.Path(), seed + std::uint32_t(figures.sessions), whole - passed, figures);
    }
  } catch (const bot::Broken& broken) {
    std::cout << "broken: seed " << seed << ", session " << figures.sessions << ", t "
              << Double(broken.t.count()) / 1000 << " ms: " << broken.what << '\n';
    return 1;
  }
  std::cout << "hours " << hours << ", sessions " << figures.sessions << ", games ended " << figures.games
            << ", best score " << figures.best << ", levels left";
  for (std::size_t serie = 0; serie < 4; ++serie)
    std::cout << ' ' << "ABCD"[serie] << ' ' << figures.levels[serie];
  std::cout << '\n';
  return 0;
}

void Print(const bot::LevelFigures& level) {
  std::cout << std::left << std::setw(6) << level.Name() << std::right << std::fixed << std::setprecision(1)
            << std::setw(8) << level.minutes << std::setw(9) << level.drought << std::setw(11)
            << level.hard_hits << std::setw(8) << level.unseen << (level.ended ? "" : "  not finished")
            << std::endl;
}

/// The levels in series A and D.
int PlayLevels(const stage::TempFolder& folder, std::uint32_t seed, int first, int last) {
  constexpr std::uint32_t kPlays = 101;
  std::vector<std::string> broken;
  std::cout << "level  minutes  drought  hard hits  unseen\n";
  for (const int serie : {0, 3}) {
    std::vector<bot::LevelFigures> series;
    for (int number = first; number <= last; ++number) {
      if (!std::filesystem::exists(folder.Path() / "levels" / (std::to_string(number) + ".sav"))) break;
      std::vector<bot::LevelPlay> plays;
      for (std::uint32_t i = 0; i < kPlays; ++i)
        plays.push_back(bot::PlayLevel(folder.Path(), number, serie, seed + i));
      Print(series.emplace_back(serie, number, plays));
    }
    const std::vector<std::string> of_series = bot::BrokenLimits(series);
    broken.insert(broken.end(), of_series.begin(), of_series.end());
  }
  for (const std::string& what : broken) std::cout << "broken: " << what << '\n';
  return broken.empty() ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments) {
  constexpr Double kUsualHours = 24;
  const bool levels = count > 1 && std::string(arguments[1]) == "--levels";
  stage::machine::WriteOutputAsIs();
  const auto number = [&](int i, int otherwise) { return count > i ? std::stoi(arguments[i]) : otherwise; };
  try {
    const Double hours = count > 1 && !levels ? std::stod(arguments[1]) : kUsualHours;
    const auto seed = std::uint32_t(levels ? number(4, 1) : number(2, int(std::random_device{}() / 4)));
    std::cout << "seed " << seed << std::endl;
    const stage::TempFolder folder;
    folder.TakeProgramFolders(stage::machine::OwnFolder());
    if (!levels) return Soak(folder, hours, seed);
    const int first = number(2, 1);
    return PlayLevels(folder, seed, first, number(3, count > 2 ? first : std::numeric_limits<int>::max()));
  } catch (const bot::Broken& broken) {
    std::cout << "broken at " << Double(broken.t.count()) / 1000 << " ms: " << broken.what << '\n';
  } catch (const std::exception& error) {
    std::cerr << "korvane-soak: " << error.what() << '\n';
  }
  return 1;
}
