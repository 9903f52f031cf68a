// Reading levels, what a file that cannot be read leads to, and when a level is over.
#include <gtest/gtest.h>

#include "stage/files/path_text.h"
#include "stage/forms/dialogs.h"
#include "tests/mesa.h"

namespace {

using namespace tests;

using Files = std::map<std::string, std::string>;

/// A table with this as level 2, which has been loaded in series `serie`.
struct Loaded {
  explicit Loaded(const std::string& second, Integer serie = 0, stage::ScreenSize screen = {})
      : mesa(Files{{"levels/1.sav", kQuietLevel}, {"levels/2.sav", second}}, {.screen = screen}),
        jogo(mesa.Jogo()) {
    mesa.platform->Director = [this] {
      message = dynamic_cast<stage::Dialog&>(*mesa.Palco().ActiveForm()).Message();
      mesa.Press(13);
    };
    jogo.clearall();
    jogo.Serie = serie;
    jogo.FaseAtual = 2;
    jogo.loadup(2);
  }
  bool Failed() const { return jogo.Label2.Caption.Get() != "Tela: A-2"; }

  Mesa mesa;
  game& jogo;
  std::string message;
};

TEST(Loader, ReadsFieldsWhereverTheLinesEnd) {
  const char* const same[] = {"600,1200,225,465,7\n",         "600,1200,225,465,7",
                              "600\n1200\r\n225,465\r7\n",    " 600,\t1200, 225 ,465  ,7\r\n",
                              "\"600\",1200,225,\"465\",7\n", "600.9,1200.2,225.7,+465,7.4\n"};
  for (const char* text : same) {
    Loaded table(text);
    ASSERT_FALSE(table.Failed()) << text;
    stage::Image& block = table.jogo.Box(1);
    EXPECT_EQ(block.Top, 600) << text;
    EXPECT_EQ(block.Left, 1200);
    EXPECT_EQ(block.Height, 225);
    EXPECT_EQ(block.Width, 465);
    EXPECT_EQ(table.mesa.programa->Module1.TipoBox(1), 7);
    EXPECT_EQ(block.Picture.Get()->name, "ImagePedra7");
    EXPECT_TRUE(block.Visible);
    EXPECT_EQ(table.jogo.ProximoBox, 2);
    EXPECT_EQ(table.mesa.programa->Module1.TipoBox(2), 100);
    EXPECT_FALSE(table.jogo.Box(2).Visible);
    EXPECT_FALSE(table.jogo.Box(2).Stretch);
    table.jogo.clearall();
    for (const int i : {1, 2}) EXPECT_EQ(table.mesa.programa->Module1.TipoBox(i), 0);
  }
}

TEST(Loader, TakesWhatCannotBeReadAsTheEndOfTheSeries) {
  const std::string block = "600,1000,250,480,3\n";
  const std::string broken[] = {"\n" + block,
                                block + "\n",
                                block + "600,1000,250,480",
                                block + "600,1000,250,480,",
                                "x,1000,250,480,3\n",
                                "600,1e3,250,480,3\n",
                                "600,1000,250,-,3\n",
                                "600,1000,250,480,0\n",
                                "600,1000,250,480,23\n",
                                "40000,1000,250,480,3\n",
                                "Pisca,3,600,0,0\n",
                                "pisca,3,600,none,0\n",
                                "pisca,40000,600,0,0\n",
                                "pisca,3,65536,0,0\n",
                                "pisca,3,600,40000,0\n",
                                std::string("\0\xFF,\"", 4)};
  for (const std::string& text : broken) {
    Loaded table(text);
    EXPECT_EQ(table.jogo.Label2.Caption.Get(), "Tela: B-1") << text.substr(0, 40);
    EXPECT_EQ(table.jogo.Serie, 1);
    EXPECT_EQ(table.jogo.FaseAtual, 1);
    EXPECT_EQ(table.jogo.ProximoBox, 2);
    EXPECT_FALSE(table.jogo.Box.Exists(3));
    EXPECT_EQ(table.message, "");
  }
}

TEST(Loader, ALevelThatBreaksOffInTheLastSeriesParksNoBonus) {
  std::string blocks;
  for (int i = 0; i < 599; ++i) blocks += "600,1000,250,480,3\n";
  for (const std::string& text :
       {blocks, blocks + "600,1000,250,480,3\n", blocks.substr(0, 19) + "1,1,250,480,23\n"}) {
    SCOPED_TRACE(text.size());
    Loaded table(text, 3);
    game& jogo = table.jogo;
    EXPECT_EQ(table.message, "Todos os niveis completados");
    const bool visible = jogo.Box(jogo.ProximoBox).Visible;
    jogo.BolaPresa = false;
    for (int tick = 0; tick < 2; ++tick) {
      table.mesa.Palco().Draws.Prepared() = {0, 0.5F, 0.5F};  // the ball of kind 1, in the middle
      jogo.TimerBonusParado_Timer();
      EXPECT_EQ(jogo.Box(jogo.ProximoBox).Visible, visible);
      EXPECT_EQ(jogo.BonusParado, 0);
    }
  }
}

TEST(Loader, TellsHardBlocksByTheFieldItself) {
  EXPECT_TRUE(Loaded("600,1000,250,480,20\n").jogo.TemRigido);
  EXPECT_TRUE(Loaded("600,1000,250,480,\"20.0\"\n").jogo.TemRigido);
  Loaded near("600,1000,250,480,20.4\n");
  EXPECT_FALSE(near.jogo.TemRigido);
  EXPECT_EQ(near.mesa.programa->Module1.TipoBox(1), 20);
}

TEST(Loader, ScalesEachAxisByTheScreenToTheNearestEvenWhole) {
  struct Case {
    stage::ScreenSize screen;
    const char* key = nullptr;
    int value = 0;
    int scaled = 0;
  };
  const Case cases[] = {{{12000, 9000}, "width", 981, 981},    {{12000, 9000}, "top", 32767, 32767},
                        {{15360, 11520}, "height", 981, 1256}, {{15360, 11520}, "width", 981, 1256},
                        {{18000, 13500}, "top", 3, 4},         {{18000, 13500}, "left", 5, 8},
                        {{18000, 13500}, "left", -3, -4},      {{16000, 9000}, "left", 981, 1308},
                        {{16000, 9000}, "height", 981, 981},   {{16000, 9000}, "WIDTH", -981, -1308},
                        {{16000, 9000}, "", 981, 0},           {{16000, 9000}, "widths", 981, 0},
                        {{16000, 9000}, "left", 24575, 32767}, {{24000, 9000}, "left", -16384, -32768}};
  for (const Case& each : cases) {
    Mesa mesa({{"levels/1.sav", kQuietLevel}}, {.screen = each.screen});
    EXPECT_EQ(mesa.Jogo().Redimensionar(each.key, each.value), each.scaled) << each.key << ' ' << each.value;
  }
  Loaded outside("600,24577,250,480,5\n", 0, {16000, 9000});
  EXPECT_EQ(outside.jogo.Label2.Caption.Get(), "Tela: B-1") << "a block that does not fit ends the series";
}

TEST(Progression, OnlyHardBlocksLeftEndALevel) {
  struct Case {
    int first;
    int second;
    int ball;
    bool has_hard;
    bool ends;
  };
  const Case cases[] = {{20, 20, 0, true, true}, {20, 0, 1, true, true},   {0, 0, 0, true, true},
                        {20, 4, 0, true, false}, {20, 21, 0, true, false}, {20, 20, 2, true, false},
                        {0, 0, 0, false, false}, {1, 20, 0, true, false}};
  for (const Case& each : cases) {
    Loaded table("600,1000,250,480,3\n600,3000,250,480,3\n");
    Module1& shared = table.mesa.programa->Module1;
    shared.TipoBox(1) = each.first;
    shared.TipoBox(2) = each.second;
    shared.BolaAtual = each.ball;
    table.jogo.TemRigido = each.has_hard;
    table.jogo.BolaPresa = false;
    table.jogo.passafase();
    EXPECT_EQ(table.jogo.Label2.Caption.Get(), each.ends ? "Tela: B-1" : "Tela: A-2");
    EXPECT_EQ(table.jogo.BolaPresa, each.ends);
  }
}

TEST(Loader, WithoutAnyLevelTheProgramEndsInOrder) {
  const stage::TempFolder empty;
  stage::sdl::Artist artist;
  stage::ScriptedPlatform platform({.folder = empty.Path()}, artist);
  Programa programa(platform, Assets());
  int messages = 0;
  platform.Director = [&] {
    ++messages;
    EXPECT_EQ(programa.Palco.ActiveForm()->Name(), "MsgBox");
    platform.Send(stage::KeyPressed{13, 0});
  };
  testing::internal::CaptureStderr();
  programa.Corre();
  const std::string line = testing::internal::GetCapturedStderr();
  EXPECT_EQ(messages, 1);
  EXPECT_NE(line.find(stage::TextOf(std::filesystem::path("levels") / "1.sav")), std::string::npos);
  EXPECT_EQ(std::count(line.begin(), line.end(), '\n'), 1);
}

}  // namespace
