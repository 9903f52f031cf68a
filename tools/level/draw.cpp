#include "tools/level/draw.h"

#include <fstream>

#include "assets/assets.h"
#include "core/programa.h"
#include "stage/files/path_text.h"
#include "stage/files/temp_folder.h"
#include "stage/machines/scripted/picture_file.h"
#include "stage/machines/scripted/scripted_platform.h"
#include "stage/machines/sdl/artist.h"

namespace level {
namespace {

struct Ready {};

void Place(std::string_view text, const std::filesystem::path& folder) {
  std::filesystem::create_directory(folder / "levels");
  std::ofstream(folder / "levels" / "1.sav", std::ios::binary) << text;
}

/// Brings the play form up, closes the help screen and lets one beat pass.
void ComeToPlay(korvane::Programa& programa, stage::ScriptedPlatform& platform) {
  bool beat_passed = false;
  platform.Director = [&] {
    const std::string& form = programa.Palco.ActiveForm()->Name();
    if (form == "MsgBox") throw std::runtime_error("the game cannot load this level");
    if (form != "game") return platform.Send(stage::KeyPressed{stage::key::kEsc});
    if (beat_passed) throw Ready{};
    beat_passed = true;
    platform.PassTo(stage::kBeat);
  };
  try {
    programa.Corre();
  } catch (const Ready&) {
    platform.Director = nullptr;
  }
}

}  // namespace

void Draw(std::string_view text, const std::filesystem::path& picture, stage::PixelSize display) {
  constexpr stage::Double kLines = 600;
  const stage::TempFolder folder;
  Place(text, folder.Path());
  stage::ScriptedSetup setup;
  setup.screen = stage::ScreenFor(display);
  setup.scale = display.height / kLines;
  setup.folder = folder.Path();
  stage::sdl::Artist artist;
  stage::ScriptedPlatform platform(setup, artist);
  korvane::Programa programa(platform, korvane::Assets());
  ComeToPlay(programa, platform);
  platform.Look(true);
  programa.Palco.Repaint();
  if (!stage::SavePng(*platform.Canvas(), picture)) {
    throw std::runtime_error("cannot write " + stage::TextOf(picture));
  }
}

}  // namespace level
