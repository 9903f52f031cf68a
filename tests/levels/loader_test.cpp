// Reading levels, and what a file that cannot be read leads to.
#include <gtest/gtest.h>

#include "stage/dialogs.h"
#include "tests/mesa.h"

namespace {

using namespace tests;

using Files = std::map<std::string, std::string>;

/// A table with this as level 2, which has been loaded in series `serie`.
struct Loaded {
  explicit Loaded(const std::string& second, Integer serie = 0, stage::ScreenSize screen = {})
      : mesa(Files{{"levels/1.sav", kQuietLevel}, {"levels/2.sav", second}}, screen), jogo(mesa.Jogo()) {
    mesa.platform->Director = [this] {
      message = dynamic_cast<stage::Dialog&>(*mesa.Palco().ActiveForm()).Message();
      mesa.Press(13);
    };
    jogo.clearall();
    jogo.Serie = serie;
    jogo.FaseAtual = 2;
    jogo.loadup(2);
  }
  bool Failed() { return jogo.Label2.Caption.Get() != "Tela: A-2"; }

  Mesa mesa;
  game& jogo;
  std::string message;
};

std::string Blocks(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += "600,1000,250,480,3\n";
  return text;
}

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
  }
}

TEST(Loader, TakesEmptyFieldsAsNought) {
  Loaded table(",,250,480,3\n");
  EXPECT_FALSE(table.Failed());
  EXPECT_EQ(table.jogo.Box(1).Top, 0);
  EXPECT_EQ(table.jogo.Box(1).Left, 0);
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
                                Blocks(599),
                                Blocks(600),
                                Blocks(601),
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

TEST(Loader, HoldsAsManyBlocksAsThereAreTypes) {
  Loaded table(Blocks(598));
  EXPECT_FALSE(table.Failed());
  EXPECT_EQ(table.jogo.ProximoBox, 599);
  EXPECT_EQ(table.mesa.programa->Module1.TipoBox(599), 100);
}

TEST(Loader, FollowsTheRules) {
  struct Case {
    const char* text;
    int type;
    int interval;
    int barred;
    bool blinks;
  };
  const Case cases[] = {{"pisca,5,800,3,0\n", 5, 800, 3, true},
                        {"\"pisca\",5,100,0,0\n", 5, 500, 0, true},
                        {"pisca,0,800,10,x\n", 0, 1000, 10, false},
                        {"pisca,,,3,\n0,0,1,1,1\n", 0, 1000, 3, false},
                        {"pisca,-2,800,3,0\n", 0, 1000, 3, false},
                        {"pisca,5 or so,700ms,3,0\n", 5, 700, 3, true},
                        {"pisca,5,800,3,0\npisca,6,900,4,0\npisca,0,600,7,0\n", 6, 900, 7, true}};
  for (const Case& each : cases) {
    Loaded table(each.text);
    ASSERT_FALSE(table.Failed()) << each.text;
    EXPECT_EQ(table.jogo.TipoPisca, each.type) << each.text;
    EXPECT_EQ(table.jogo.TimerPisca.Interval, each.interval) << each.text;
    EXPECT_EQ(table.jogo.BonusExcluido, each.barred) << each.text;
    EXPECT_EQ(table.jogo.TimerPisca.Enabled, each.blinks) << each.text;
  }
}

TEST(Loader, KeepsTheRulesOfAFileThatFailed) {
  Mesa mesa(
      {{"levels/1.sav", "600,1000,250,480,3\n"}, {"levels/2.sav", "pisca,3,900,5,0\npisca,7,800,bad,0\n"}});
  game& jogo = mesa.Jogo();
  jogo.clearall();
  jogo.loadup(2);
  EXPECT_EQ(jogo.Label2.Caption.Get(), "Tela: B-1");
  EXPECT_EQ(jogo.TipoPisca, 7);
  EXPECT_EQ(jogo.TimerPisca.Interval, 800);
  EXPECT_EQ(jogo.BonusExcluido, 5);
  EXPECT_TRUE(jogo.TimerPisca.Enabled);
}

TEST(Loader, TellsHardBlocksByTheFieldItself) {
  EXPECT_TRUE(Loaded("600,1000,250,480,20\n").jogo.TemRigido);
  EXPECT_TRUE(Loaded("600,1000,250,480,\"20.0\"\n").jogo.TemRigido);
  Loaded near("600,1000,250,480,20.4\n");
  EXPECT_FALSE(near.jogo.TemRigido);
  EXPECT_EQ(near.mesa.programa->Module1.TipoBox(1), 20);
}

TEST(Loader, ScalesAndShiftsBlocks) {
  struct Case {
    stage::ScreenSize screen;
    int serie;
    Single top;
    Single left;
    Single height;
    Single width;
  };
  const Case cases[] = {{{12000, 9000}, 0, 601, 1001, 251, 481},
                        {{12000, 9000}, 2, Single(601 + 9000.0 / 35 * 2), 1001, 251, 481},
                        {{16000, 9000}, 0, 601, 1335, 251, 641},
                        {{15360, 11520}, 1, Single(769 + 11520.0 / 35), 1281, 321, 616}};
  for (const Case& each : cases) {
    Loaded table("601,1001,251,481,3\n", each.serie, each.screen);
    const stage::Image& block = table.jogo.Box(1);
    EXPECT_EQ(block.Top, each.top);
    EXPECT_EQ(block.Left, each.left);
    EXPECT_EQ(block.Height, each.height);
    EXPECT_EQ(block.Width, each.width);
  }
}

TEST(Loader, ResetsWhatDoesNotOutliveALevel) {
  Mesa mesa;
  game& jogo = mesa.Jogo();
  Module1& shared = mesa.programa->Module1;
  jogo.TamanhoUser = 3;
  jogo.Magnetico = true;
  jogo.BonusCaindo = 4;
  jogo.BatidasRigido = 9;
  jogo.BonusParado = 6;
  jogo.DeslocaBola = 40;
  shared.BolaAtual = 2;
  shared.Pontos = 35;
  jogo.clearall();
  jogo.loadup(1);
  EXPECT_FALSE(jogo.Magnetico);
  EXPECT_EQ(jogo.BonusCaindo, -1);
  EXPECT_EQ(shared.BolaAtual, 0);
  EXPECT_EQ(jogo.ball.Picture.Get()->name, "Imageball0");
  EXPECT_EQ(jogo.TamanhoUser, 3);
  EXPECT_EQ(jogo.BatidasRigido, 9);
  EXPECT_EQ(jogo.BonusParado, 6);
  EXPECT_EQ(jogo.DeslocaBola, 40);
  EXPECT_EQ(shared.Pontos, 35);
}

TEST(Loader, EndsAfterSeriesDWithAMessage) {
  Loaded table("600,1000,250,480,3\nbroken", 3);
  EXPECT_EQ(table.message, "Todos os niveis completados");
  EXPECT_TRUE(table.jogo.Box.Exists(1));
  EXPECT_EQ(table.jogo.Serie, 3);
  EXPECT_EQ(table.jogo.FaseAtual, 2);
  EXPECT_EQ(table.jogo.Label2.Caption.Get(), "Tela: A-1");
}

TEST(Loader, WithoutAnyLevelTheProgramEndsInOrder) {
  const tools::TempFolder empty;
  stage::sdl::Artist artist;
  stage::ScriptedPlatform platform({{}, 1, 43200, empty.Path()}, artist);
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
  EXPECT_NE(line.find("levels/1.sav"), std::string::npos);
  EXPECT_EQ(std::count(line.begin(), line.end(), '\n'), 1);
}

}  // namespace
