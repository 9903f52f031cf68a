// korvane-soak [HOURS] [SEED]: a bot plays for hours of virtual time, across all series, while the invariants
// of the game are watched at every beat. korvane-soak --levels [SEED]: the bot plays each level of series A
// and D to its end.
#include <array>
#include <chrono>
#include <iomanip>
#include <iostream>

#include "assets/assets.h"
#include "stage/sdl/artist.h"
#include "tools/bot.h"
#include "tools/invariants.h"
#include "tools/temp_folder.h"

namespace {

using korvane::game;
using stage::Double;
using stage::Moment;

constexpr Double kMicrosecondsInMinute = 60e6;

struct Enough {};
struct Broken {
  Moment t;
  std::string what;
};

stage::ScriptedSetup Setup(const std::filesystem::path& folder) {
  stage::ScriptedSetup setup;
  setup.folder = folder;
  return setup;
}

/// One run of the program, with the bot in front of it.
struct Session {
  Session(const std::filesystem::path& folder, std::uint32_t seed)
      : platform(Setup(folder), artist),
        programa(platform, korvane::Assets()),
        bot(programa, platform, seed) {
    programa.Palco.Draws.Fix(seed);
  }

  /// `look` is called each time the program waits, before the bot acts.
  template <class Look>
  void Run(Look look) {
    platform.Director = [this, look] {
      if (game* const jogo = programa.game.Last(); jogo != nullptr && jogo->LeuFase) {
        const std::string what = invariants.Broken(*jogo, programa.Palco.ActiveForm());
        if (!what.empty()) throw Broken{platform.Now(), what};
        look(*jogo);
      }
      bot.Act();
    };
    try {
      programa.Corre();
    } catch (const Enough&) {
    }
  }

  stage::sdl::Artist artist;
  stage::ScriptedPlatform platform;
  korvane::Programa programa;
  bot::Bot bot;
  bot::Invariants invariants;
};

void GoTo(game& jogo, int serie, int number) {
  jogo.clearall();
  jogo.FaseAtual = number;
  jogo.Serie = serie;
  jogo.loadup(number);
}

struct Figures {
  int sessions = 0;
  int games = 0;
  std::array<int, 4> levels{};  // left, by series
  std::int64_t best = 0;
};

/// Plays until `end` or until the bot leaves the program. Gives the time that passed.
Moment PlayOn(const std::filesystem::path& folder, std::uint32_t seed, Moment end, Figures& figures) {
  constexpr Moment kLongestSession = std::chrono::hours(3);
  Session session(folder, seed);
  std::int64_t gone = -1;
  std::int64_t points = 0;
  int serie = 0;
  bool leaving = false;
  session.Run([&](game& jogo) {
    const Moment now = session.platform.Now();
    if (now >= end) throw Enough{};
    const bool in_play = session.programa.Palco.ActiveForm()->Name() == "game";
    if (in_play && jogo.FasesRetiradas != gone && jogo.Box.Exists(jogo.ProximoBox)) {
      ++figures.levels[std::size_t(serie)];
      if (jogo.Serie == 0 && jogo.FaseAtual == 1) GoTo(jogo, figures.games % 4, 1);
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

int Soak(const tools::TempFolder& folder, Double hours, std::uint32_t seed) {
  const auto whole =
      std::chrono::duration_cast<Moment>(std::chrono::duration<Double, std::ratio<3600>>(hours));
  Figures figures;
  Moment passed{};
  try {
    while (passed < whole) {
      passed += PlayOn(folder.Path(), seed + std::uint32_t(figures.sessions), whole - passed, figures);
    }
  } catch (const Broken& broken) {
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

/// Minutes of virtual play that the level took; below 0 if it did not end in time.
Double PlayLevel(const tools::TempFolder& folder, int number, int serie, std::uint32_t seed) {
  constexpr Moment kLongest = std::chrono::minutes(60);
  constexpr int kLives = 5;
  Session session(folder.Path(), seed);
  session.bot.wanders = false;
  session.bot.stays_in_level = true;
  Moment start{-1};
  bool ended = false;
  session.Run([&](game& jogo) {
    const Moment now = session.platform.Now();
    if (session.programa.Palco.ActiveForm()->Name() != "game") return;
    const bool speed_found = jogo.Module1.Iniciado && !jogo.timerDefine.Enabled;
    if (start < Moment{0}) {
      if (!speed_found) return;
      start = now;
      GoTo(jogo, serie, number);
    }
    jogo.Vidas = kLives;  // the game does not end under the bot
    ended = jogo.FaseAtual != number || jogo.Serie != serie;
    if (ended || now - start >= kLongest) throw Enough{};
  });
  return ended ? Double((session.platform.Now() - start).count()) / kMicrosecondsInMinute : -1;
}

int PlayLevels(const tools::TempFolder& folder, std::uint32_t seed) {
  int failed = 0;
  for (const int serie : {0, 3}) {
    for (int number = 1;
         std::filesystem::exists(folder.Path() / "levels" / (std::to_string(number) + ".sav")); ++number) {
      const Double minutes = PlayLevel(folder, number, serie, seed);
      std::cout << "ABCD"[serie] << '-' << number << ' ';
      if (minutes < 0) {
        ++failed;
        std::cout << "not finished" << std::endl;
      } else {
        std::cout << std::fixed << std::setprecision(1) << minutes << std::endl;
      }
    }
  }
  return failed == 0 ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments) {
  constexpr Double kUsualHours = 24;
  const bool levels = count > 1 && std::string(arguments[1]) == "--levels";
  try {
    const Double hours = count > 1 && !levels ? std::stod(arguments[1]) : kUsualHours;
    const auto seed = count > 2 ? std::uint32_t(std::stoul(arguments[2])) : std::random_device{}();
    std::cout << "seed " << seed << std::endl;
    const tools::TempFolder folder;
    folder.TakeProgramFolders(tools::OwnFolder());
    return levels ? PlayLevels(folder, seed) : Soak(folder, hours, seed);
  } catch (const Broken& broken) {
    std::cout << "broken at " << Double(broken.t.count()) / 1000 << " ms: " << broken.what << '\n';
  } catch (const std::exception& error) {
    std::cerr << "korvane-soak: " << error.what() << '\n';
  }
  return 1;
}
