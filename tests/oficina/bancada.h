// The workshop on the table, for tests: played by lines of a script, as korvane-replay knows them, in virtual
// time.
#pragma once

#include <map>
#include <sstream>

#include "assets/assets.h"
#include "oficina/FrmOficina.h"
#include "stage/files/temp_folder.h"
#include "stage/machines/scripted/scripted_platform.h"
#include "stage/machines/sdl/artist.h"
#include "tools/files.h"
#include "tools/replay/input.h"

namespace tests {

using oficina::FrmOficina;
using oficina::Oficina;
using tools::ReadFile;
using tools::WriteFile;

/// A place of the drawing on a screen of 12000 by 9000, as the words of a script.
inline std::string Em(int x, int y) {
  std::ostringstream words;
  words << x * 0.99375004 << ' ' << y * 0.89999974;
  return words.str();
}

class Bancada {
 public:
  /// Files of the player's folder by name; `pedido` is the one on the command line, or an address.
  explicit Bancada(const std::map<std::string, std::string>& files = {}, const std::string& pedido = "",
                   stage::ScriptedSetup setup = {}) {
    setup.folder = folder.Path();
    for (const auto& [name, content] : files) WriteFile(folder.Path() / name, content);
    platform.emplace(setup, artist);
    platform->Director = [this] { Direct(); };
    const bool arquivo = !pedido.empty() && pedido.front() != '#';
    oficina.emplace(*platform, korvane::Assets(),
                    arquivo ? stage::TextOf(folder.Path() / stage::PathOf(pedido)) : pedido);
  }

  /// Plays the lines; beside those of Input `beats N`, `quit` at the session's end, and `form`, which notes
  /// what form is up. Where they end no box may be up. False once the workshop has ended.
  bool Play(const std::string& lines) {
    script_ = std::istringstream(lines);
    try {
      if (started_) {
        oficina->Palco.Run();
      } else {
        started_ = true;
        oficina->Corre();
      }
      return false;
    } catch (const Played&) {
      return true;
    }
  }

  FrmOficina& Form() { return *oficina->FrmOficina.Last(); }
  const std::vector<desenho::Block>& Blocks() { return Form().Agora().blocos; }
  /// Those noted since the last call.
  std::string Forms() { return std::exchange(forms_, {}); }
  std::string Words() { return Form().Palavras.Caption; }
  std::filesystem::path Level(int number) const {
    return folder.Path() / "levels" / (std::to_string(number) + ".sav");
  }

  stage::TempFolder folder;
  stage::sdl::Artist artist;
  std::optional<stage::ScriptedPlatform> platform;
  std::optional<Oficina> oficina;

 private:
  struct Played {};

  void Direct() {
    if (beats_ > 0) {
      --beats_;
      return platform->PassTo(stage::kBeat);
    }
    std::string line;
    if (!std::getline(script_, line)) throw Played{};
    std::istringstream words(line);
    std::string verb;
    words >> verb >> std::ws;
    std::string rest;
    std::getline(words, rest);
    if (verb == "beats") {
      beats_ = std::stoi(rest);
    } else if (verb == "form") {
      forms_ += oficina->Palco.ActiveForm()->Name() + ' ';
    } else if (verb == "quit") {
      platform->Send(stage::QuitAsked{});
    } else if (!input_.Send(*platform, verb, rest)) {
      throw std::runtime_error("no such line: " + line);
    }
  }

  std::istringstream script_;
  std::string forms_;
  replay::Input input_;
  int beats_ = 0;
  bool started_ = false;
};

}  // namespace tests
