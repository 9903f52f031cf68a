#include "stage/files/program_folders.h"

#include <gtest/gtest.h>

#include "stage/files/text_file.h"
#include "tests/mesa.h"

namespace tests {
namespace {

using std::filesystem::path;

/// A level that is over as soon as it is looked at.
std::string HardBlocks(int count) {
  std::string level;
  for (int i = 0; i < count; ++i) level += "600,11000,250,480,20\r\n";
  return level;
}

/// A prefix that the game was installed to, and a home for its player.
class Installed : public testing::Test {
 protected:
  Installed() {
    WriteFile(Share() / "levels" / "1.sav", kQuietLevel);
    WriteFile(Share() / "levels" / "2.sav", HardBlocks(2));
    WriteFile(Share() / "sons" / "lad.wav", "installed");
    std::filesystem::create_directory(Games());
  }

  path Games() const { return prefix_.Path() / "games"; }
  path Share() const { return prefix_.Path() / "share" / "games" / "korvane"; }
  path Home() const { return home_.Path() / "data"; }
  path Own() const { return Home() / "korvane"; }
  stage::ProgramFolders Found() const { return stage::FindProgramFolders(Games() / "", "korvane", Home()); }

  stage::TempFolder prefix_{kAnyLetters};
  stage::TempFolder home_{kAnyLetters};
};

TEST_F(Installed, TheFirstStartMakesThePlayersFolder) {
  const stage::ProgramFolders found = Found();
  EXPECT_EQ(found.own, Own());
  EXPECT_EQ(found.installed, Share());
  EXPECT_TRUE(std::filesystem::is_empty(Own() / "levels"));
  EXPECT_TRUE(std::filesystem::is_empty(Own() / "sons"));
}

TEST_F(Installed, FilesBesideTheProgramMakeItsFolderItsOwn) {
  WriteFile(Games() / "levels" / "1.sav", kQuietLevel);
  EXPECT_EQ(Found().own, Games() / "");
  EXPECT_TRUE(Found().installed.empty());
  EXPECT_FALSE(std::filesystem::exists(Own()));
}

TEST_F(Installed, NoOtherProgramsFilesAreTaken) {
  EXPECT_TRUE(stage::FindProgramFolders(Games(), "other", Home()).installed.empty());
  EXPECT_TRUE(stage::FindProgramFolders(Share(), "korvane", Home()).installed.empty());
}

TEST_F(Installed, AFileOfThePlayersWinsAndAMissingOneFallsBack) {
  const stage::ProgramFolders found = Found();
  WriteFile(Own() / "levels" / "1.sav", kQuietLevel);
  EXPECT_EQ(stage::FileToRead(found, Own() / "levels" / "1.sav"), Own() / "levels" / "1.sav");
  EXPECT_EQ(stage::FileToRead(found, Own() / "levels" / "2.sav"), Share() / "levels" / "2.sav");
  EXPECT_EQ(stage::FileToRead(found, Own() / "levels" / "3.sav"), Own() / "levels" / "3.sav");
  // As far from the player's folder as another is from that of the program.
  WriteFile(Share() / ".." / ".." / "levels" / "2.sav", kQuietLevel);
  EXPECT_EQ(stage::FileToRead(found, home_.Path() / "levels" / "2.sav"), home_.Path() / "levels" / "2.sav");
}

TEST_F(Installed, LevelsOfBothFoldersMakeOneSeries) {
  Mesa mesa({{"levels/1.sav", HardBlocks(1)}, {"levels/3.sav", HardBlocks(3)}}, {.installed = Share()});
  game& jogo = mesa.Jogo();
  std::string series;
  for (; jogo.Serie == 0; jogo.passafase()) {
    series += std::to_string(jogo.FaseAtual) + ":" + std::to_string(jogo.ProximoBox - 1) + " ";
  }
  EXPECT_EQ(series, "1:1 2:2 3:3 ");
  EXPECT_TRUE(std::filesystem::exists(mesa.folder.Path() / "kv_his.dat"));
  EXPECT_FALSE(std::filesystem::exists(Share() / "kv_his.dat"));
}

TEST_F(Installed, SoundsAreLookedForLikeLevels) {
  struct Listening : stage::ScriptedPlatform {
    using ScriptedPlatform::ScriptedPlatform;
    void PlaySound(const path& file) override { played = file; }
    path played;
  };
  stage::sdl::Artist artist;
  Listening platform({.folder = Own(), .installed = Share()}, artist);
  Programa programa(platform, Assets());
  const auto play = [&] {
    programa.Palco.sndPlaySoundA(stage::HostPath(programa.Palco.AppPath(), "sons\\lad.wav"));
    return platform.played;
  };
  EXPECT_EQ(play(), Share() / "sons" / "lad.wav");
  WriteFile(Own() / "sons" / "lad.wav", "own");
  EXPECT_EQ(play(), Own() / "sons" / "lad.wav");
}

TEST(ProgramFolder, MayHaveABackslashInItsName) {
  const stage::TempFolder around;
  const path own = around.Path() / "a\\b\\";
  Mesa mesa({{"levels/1.sav", kQuietLevel},
             {"levels/2.sav", HardBlocks(2)},
             {"config.ini", "[SETUP]\nVkorv=120\n"}},
            {.folder = own});
  EXPECT_EQ(mesa.Jogo().Label2.Caption.Get(), "Tela: A-1");
  EXPECT_EQ(mesa.Jogo().Module1.Vkorv, 120);
  mesa.Jogo().clearall();
  mesa.Jogo().loadup(2);
  EXPECT_EQ(mesa.Jogo().Label2.Caption.Get(), "Tela: A-2");
  EXPECT_TRUE(std::filesystem::exists(own / "kv_his.dat"));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(around.Path()), {}), 1);
}

}  // namespace
}  // namespace tests
