// One run of the program in virtual time, with the bot in front of it and the invariants watched.
#pragma once

#include "assets/assets.h"
#include "oficina/bot/bot.h"
#include "oficina/bot/invariants.h"
#include "stage/machines/scripted/blind_artist.h"

namespace bot {

/// Thrown by who looks: the run ends.
struct Enough {};
/// An invariant does not hold.
struct Broken {
  stage::Moment t;
  std::string what;
};

struct Session {
  Session(const std::filesystem::path& folder, std::uint32_t seed)
      : platform(Setup(folder), artist),
        programa(platform, korvane::Assets()),
        bot(programa, platform, seed) {
    programa.Palco.Draws.Fix(seed);
  }

  /// `look` is called each time the program waits, before the bot acts. Raises Broken.
  template <class Look>
  void Run(Look look) {
    platform.Director = [this, look] {
      if (korvane::game* const jogo = programa.game.Last(); jogo != nullptr && jogo->LeuFase) {
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

  stage::BlindArtist artist;
  stage::ScriptedPlatform platform;
  korvane::Programa programa;
  Bot bot;
  Invariants invariants;

 private:
  static stage::ScriptedSetup Setup(const std::filesystem::path& folder) {
    stage::ScriptedSetup setup;
    setup.folder = folder;
    return setup;
  }
};

inline void GoTo(korvane::game& jogo, int serie, int number) {
  jogo.clearall();
  jogo.FaseAtual = number;
  jogo.Serie = serie;
  jogo.loadup(number);
}

}  // namespace bot
