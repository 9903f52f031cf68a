// The real program played by a script, in virtual time and without a screen. Pictures show what stands; with
// `refresh HZ` before `start` they show effects and what glides too, as a display of that rate would.
#pragma once

#include <cstdint>
#include <deque>
#include <istream>
#include <memory>
#include <optional>
#include <ostream>
#include <stdexcept>

#include "core/game.h"
#include "stage/files/temp_folder.h"
#include "stage/machines/scripted/scripted_platform.h"
#include "tools/replay/input.h"
#include "tools/replay/names.h"

namespace replay {

/// A line of the script that cannot be done.
class ScriptError : public std::runtime_error {
 public:
  ScriptError(int line, const std::string& why)
      : runtime_error("line " + std::to_string(line) + ": " + why) {}
};

class Replay {
 public:
  /// Prints one JSON object per line. `built` is the folder to copy when the script names none.
  Replay(std::istream& script, std::ostream& out, std::filesystem::path built)
      : script_(script), out_(out), built_(std::move(built)) {}

  /// Plays the script to its end. Raises ScriptError, and stage::RuntimeError if the program fails.
  void Run();

 private:
  struct Line {
    std::string verb;
    std::string rest;
  };
  /// One program with all that it needs.
  struct Played {
    explicit Played(const stage::ScriptedSetup& setup);
    std::unique_ptr<stage::Artist> artist = stage::MakeArtist();
    stage::ScriptedPlatform platform;
    korvane::Programa programa;
    korvane::game& Game() const { return *programa.game.Last(); }
  };
  struct ScriptDone {};

  bool Read(Line& line);
  void Prepare(const Line& line);
  void Start();
  /// Does what a line asks of the running program; true if the program has something to react to.
  bool Do(const Line& line);
  /// Called by the program whenever it waits.
  void Direct();
  void Set(const std::string& rest);
  void Draws(const std::string& rest);
  void Seed(const std::string& rest);
  void OnlyTimers(const std::string& rest);
  void Picture(const std::string& file);
  void PrintState();
  void PrintValues(const std::string& rest);
  std::vector<Name> RunNames();

  std::istream& script_;
  std::ostream& out_;
  std::filesystem::path built_;
  stage::ScriptedSetup setup_;
  std::optional<stage::TempFolder> folder_;
  std::optional<Played> played_;
  std::optional<std::uint32_t> seed_;
  std::deque<stage::Single> draws_;
  std::int64_t beats_ = 0;
  int line_ = 0;
  Input input_;
  bool ended_ = false;
};

}  // namespace replay
