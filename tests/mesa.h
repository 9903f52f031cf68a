// A program ready to play, for tests: started, the help screen closed, the ball held. Nothing runs by itself.
#pragma once

#include <map>

#include "assets/assets.h"
#include "core/game.h"
#include "stage/files/temp_folder.h"
#include "stage/machines/scripted/scripted_platform.h"
#include "stage/machines/sdl/artist.h"
#include "tools/files.h"

namespace tests {

using namespace korvane;

using tools::ReadFile;
using tools::WriteFile;

/// A folder name that no one code page of old can hold.
inline constexpr const char* kAnyLetters = "José 日本";

/// One normal block far from the ball's way, no bonuses.
inline constexpr const char* kQuietLevel = "pisca,0,500,10,0\r\n600,11000,250,480,5\r\n";

/// Levels by number, each as the text of its file.
inline std::map<std::string, std::string> Levels(const std::vector<std::string>& texts) {
  std::map<std::string, std::string> files;
  for (std::size_t i = 0; i < texts.size(); ++i) files["levels/" + std::to_string(i + 1) + ".sav"] = texts[i];
  return files;
}

class Mesa {
 public:
  /// Files of the program's folder by name. Without any there is one quiet level. Unless a folder is given it
  /// is `folder`.
  explicit Mesa(const std::map<std::string, std::string>& files = {{"levels/1.sav", kQuietLevel}},
                stage::ScriptedSetup setup = {}) {
    if (setup.folder.empty()) setup.folder = folder.Path();
    for (const auto& [name, content] : files) WriteFile(setup.folder / name, content);
    platform.emplace(setup, artist);
    programa.emplace(*platform, Assets());
    platform->Director = [this] {
      if (programa->Palco.ActiveForm()->Name() == "game") throw Ready{};
      Press(27);
    };
    try {
      programa->Corre();
    } catch (const Ready&) {
      platform->Director = nullptr;
    }
  }

  game& Jogo() { return *programa->game.Last(); }
  stage::Stage& Palco() { return programa->Palco; }
  std::string FormName() { return Palco().ActiveForm() == nullptr ? "" : Palco().ActiveForm()->Name(); }

  /// A key goes down; what waits is done at the next beat, or by the loop that runs.
  void Press(int code, int shift = 0) { platform->Send(stage::KeyPressed{code, shift}); }
  void Type(const std::string& text) { platform->Send(stage::TextTyped{text}); }
  void Click() { platform->Send(stage::PointerPressed{}); }
  void Do() { Palco().DoEvents(); }
  /// The pointer goes to a place in units of the play form.
  void PointAt(stage::Double x, stage::Double y) {
    platform->MoveTo(x * 0.99375, y * 0.9);
    Do();
  }
  void Beats(int count) {
    for (int i = 0; i < count; ++i) {
      platform->PassTo(stage::kBeat);
      Do();
    }
  }

  stage::TempFolder folder{kAnyLetters};
  stage::sdl::Artist artist;
  std::optional<stage::ScriptedPlatform> platform;
  std::optional<Programa> programa;

 private:
  struct Ready {};
};

}  // namespace tests
