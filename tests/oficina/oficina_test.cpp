// The workshop, drawn in by a hand.
#include <gtest/gtest.h>

#include "oficina/desenho/check.h"
#include "oficina/desenho/map.h"
#include "tests/mesa.h"
#include "tests/oficina/bancada.h"

namespace {

using namespace tests;
using desenho::Block;

constexpr const char* kCtrlZ = "key 90 2\n";
constexpr const char* kCtrlY = "key 89 2\n";
constexpr const char* kCtrlS = "key 83 2\n";

/// A brick of the grid: column and row count from the corner that all grids have.
constexpr Block Tijolo(int coluna, int fila, int tipo = 1) {
  return {.top = 765 + fila * 260, .left = 370 + coluna * 490, .height = 250, .width = 480, .type = tipo};
}
std::string Meio(const Block& bloco) {
  return Em(bloco.left + bloco.width / 2, bloco.top + bloco.height / 2);
}
std::string PoeEm(const Block& bloco) { return "move " + Meio(bloco) + "\npress\nrelease\n"; }
std::string Arrasta(const Block& de, const Block& ate) { return "drag " + Meio(de) + ' ' + Meio(ate) + '\n'; }

/// With the separator of the system.
std::string Arquivo(const char* pasta, const char* nome) {
  return stage::TextOf(std::filesystem::path(pasta) / nome);
}

struct Workshop : testing::Test {
  Bancada bancada;
  std::vector<Block> Depois(const std::string& lines) {
    EXPECT_TRUE(bancada.Play(lines));
    return bancada.Blocks();
  }
};

TEST_F(Workshop, DrawsAndUndoes) {
  const std::vector<Block> fila{Tijolo(2, 1), Tijolo(3, 1), Tijolo(4, 1)};
  EXPECT_EQ(Depois(PoeEm(fila[0])), std::vector(1, fila[0]));
  EXPECT_EQ(Depois(kCtrlZ), std::vector<Block>());
  EXPECT_EQ(Depois(Arrasta(fila[0], fila[2])), fila);
  EXPECT_EQ(Depois(kCtrlZ + Arrasta(fila[0], fila[1])).size(), 2U) << "a drag is one step";
  EXPECT_EQ(Depois(kCtrlZ).size(), 0U);
  EXPECT_EQ(Depois(kCtrlY).size(), 2U);
  // What is there already stays; the row goes on behind it.
  EXPECT_EQ(Depois(Arrasta(Tijolo(5, 1), fila[1])), (std::vector{fila[0], fila[1], Tijolo(5, 1), fila[2]}));
}

TEST_F(Workshop, TellsHowLongARobotTakesOnceTheHandIsQuiet) {
  const auto told = [&](const std::string& lines) {
    Depois(lines + "move " + Em(6000, 7000) + '\n');
    Depois("beats 96\n");
    return bancada.Words();
  };
  const std::string um = told(PoeEm(Tijolo(10, 5)));
  EXPECT_NE(um.find("um robô leva 0 min "), std::string::npos) << um;
  const std::string dois = told(PoeEm(Tijolo(3, 2)) + PoeEm(Tijolo(20, 9)) + PoeEm(Tijolo(1, 0)));
  EXPECT_NE(dois.find("um robô leva "), std::string::npos) << dois;
  EXPECT_NE(um, dois);
  Depois(PoeEm(Tijolo(12, 3)) + "move " + Em(6000, 7000) + '\n');
  Depois("beats 30\n");
  EXPECT_EQ(bancada.Words().find("robô"), std::string::npos) << "of another drawing";
}

TEST_F(Workshop, MovesResizesAndRemoves) {
  const Block um = Tijolo(2, 1);
  EXPECT_EQ(Depois(PoeEm(um) + Arrasta(um, Tijolo(7, 4))), std::vector(1, Tijolo(7, 4)));
  EXPECT_EQ(Depois(kCtrlZ + Arrasta(um, um)), std::vector(1, um)) << "a hand that does not move chooses";
  EXPECT_EQ(bancada.Form().Escolhidos(), desenho::Escolha{0});
  EXPECT_EQ(Depois("key 39\nkey 40 1\n"), std::vector(1, Block{1051, 1595, 250, 480, 1}));
  Depois(std::string(kCtrlZ) + kCtrlZ + PoeEm(um));
  const std::string alca = Em(um.Right(), um.top + um.height / 2);
  EXPECT_EQ(Depois("drag " + alca + ' ' + Em(um.Right() + 250, um.top) + '\n'),
            std::vector(1, Block{um.top, um.left, 250, 725, 1}));
  EXPECT_EQ(Depois("move " + Meio(um) + "\npress right\nrelease\n"), std::vector<Block>());
  EXPECT_EQ(Depois(kCtrlZ + Arrasta(um, um) + "key 46\n"), std::vector<Block>());
  EXPECT_EQ(bancada.Words().find("Tipo"), std::string::npos) << "of a block that is gone";
  // A quick hand is told of in jumps.
  Depois(Arrasta(um, Tijolo(9, 1)));
  EXPECT_EQ(Depois("drag " + Meio(Tijolo(3, 1)) + ' ' + Meio(Tijolo(8, 1)) + " right\n"),
            (std::vector{um, Tijolo(9, 1)}));
}

TEST_F(Workshop, GivesUpAGestureForAnotherButtonOrEsc) {
  const Block um = Tijolo(2, 1);
  Depois(PoeEm(um));
  for (const char* const desiste : {"press right\n", "key 27\n"}) {
    Depois("move " + Meio(um) + "\npress\nmove " + Meio(Tijolo(6, 6)) + "\nbeats 1\n");
    EXPECT_EQ(bancada.Blocks(), std::vector(1, Tijolo(6, 6)));
    EXPECT_EQ(bancada.Words().find("Tipo 1 "), 0U) << "and where it is by now";
    EXPECT_NE(bancada.Words().find(" em " + std::to_string(Tijolo(6, 6).left) + ','), std::string::npos);
    EXPECT_EQ(Depois(desiste + std::string("move " + Meio(Tijolo(8, 2)) + "\nrelease\n")),
              std::vector(1, um));
  }
}

TEST_F(Workshop, CopiesWhatTheRubberBandTouches) {
  const std::vector<Block> dois{Tijolo(2, 1), Tijolo(3, 1)};
  Depois(Arrasta(dois[0], dois[1]) + PoeEm(Tijolo(8, 5)));
  Depois("move " + Em(200, 600) + "\npress ctrl\nmove " + Em(2200, 1100) + "\nrelease\n");
  EXPECT_EQ(bancada.Form().Escolhidos(), (desenho::Escolha{0, 1}));
  EXPECT_EQ(Depois("key 67 2\nkey 86 2\n").size(), 5U);
  EXPECT_EQ(bancada.platform->Clipboard(), "1025,1350,250,480,1\n1025,1840,250,480,1\n");
  EXPECT_EQ(bancada.Form().Escolhidos(), (desenho::Escolha{3, 4})) << "what was pasted is chosen";
  bancada.platform->SetClipboard("anything");
  EXPECT_EQ(Depois("key 68 2\n").size(), 7U);
  EXPECT_EQ(Depois("key 88 2\n").size(), 5U);
  const auto espelhados = Depois("key 65 2\nkey 69 2\n");
  EXPECT_EQ(espelhados[0].left, 12000 - dois[0].Right());
  EXPECT_EQ(Depois("move " + Meio(espelhados[0]) + "\npress ctrl\nrelease\n"), espelhados);
  EXPECT_EQ(bancada.Form().Escolhidos(), (desenho::Escolha{1, 2, 3, 4}));
}

TEST_F(Workshop, TakesTypesFromThePaletteAndTheWheel) {
  Depois("beats 1\n");
  const stage::TwipRect rigido = bancada.Form().Paleta(20).Area();
  std::ostringstream paleta;
  paleta << "move " << rigido.left + 60 << ' ' << rigido.top + 60 << "\nclick\n";
  EXPECT_EQ(Depois(paleta.str() + PoeEm(Tijolo(2, 1, 20))), std::vector(1, Tijolo(2, 1, 20)));
  EXPECT_EQ(Depois("wheel -3\n" + PoeEm(Tijolo(4, 1))).back(), Tijolo(4, 1, 1))
      << "the last is before the first";
  Depois("move " + Meio(Tijolo(2, 1)) + "\npress middle\nrelease\n");
  EXPECT_EQ(Depois(PoeEm(Tijolo(6, 1))).back().type, 20);
  EXPECT_EQ(Depois(Arrasta(Tijolo(4, 1), Tijolo(4, 1)) + "wheel 2\n")[1].type, 18);
}

TEST_F(Workshop, DrawsWhereTheSeriesLaysBlocks) {
  Depois("key 52\n");
  Block um = Tijolo(2, 3);
  const Block visto = {
      .top = um.top + 771, .left = um.left, .height = um.height, .width = um.width, .type = 1};
  EXPECT_EQ(Depois(PoeEm(visto)), std::vector(1, um));
}

TEST_F(Workshop, SaysWhatKeepsALevelFromEnding) {
  Depois(PoeEm(Tijolo(2, 1)) + "beats 30\n");
  EXPECT_TRUE(bancada.Words().starts_with("Pronta")) << bancada.Words();
  // A block shut in by hard ones.
  Depois("wheel 3\n" + Arrasta(Tijolo(5, 0), Tijolo(7, 0)) + Arrasta(Tijolo(5, 2), Tijolo(7, 2)) +
         PoeEm(Tijolo(5, 1)) + PoeEm(Tijolo(7, 1)) + "wheel -3\n" + PoeEm(Tijolo(6, 1)) + "move " +
         Em(9000, 6000) + "\nbeats 30\n");
  EXPECT_EQ(bancada.Words(), "A esfera não alcança 1 dos blocos: a tela nunca acaba");
  EXPECT_EQ(bancada.Form().Inalcancaveis.size(), 1U);
  EXPECT_TRUE(desenho::Check(desenho::SavDe(bancada.Form().Agora())).fault);
  Depois("move " + Meio(Tijolo(6, 2)) + "\npress right\nrelease\nmove " + Em(9000, 6000) + "\nbeats 30\n");
  EXPECT_TRUE(bancada.Words().starts_with("Pronta")) << bancada.Words();
}

TEST_F(Workshop, ShowsBlinkingBlocksBlink) {
  Bancada pisca({{"levels/3.sav", "pisca,2,1000,7,0\n765,860,250,480,2\n765,1840,250,480,3\n"}},
                "levels/3.sav");
  ASSERT_TRUE(pisca.Play("beats 70\n"));
  EXPECT_FALSE(pisca.Form().Box(1).Visible);
  EXPECT_TRUE(pisca.Form().Box(2).Visible);
  EXPECT_EQ(pisca.Form().TextoPisca.Caption.Get() + '|' + pisca.Form().TextoBarrado.Caption.Get(),
            "1000 ms|barrado");
  // The rule's form: nothing blinks, a second and a half to the period.
  ASSERT_TRUE(pisca.Play("key 82\nform\nmove 6000 4500\nwheel 5\nkey 13\nform\n"));
  EXPECT_EQ(pisca.Forms(), "FrmRegra game ");
  EXPECT_EQ(pisca.Form().Agora().regra, (desenho::Regra{2, 1500, 7}));
  EXPECT_TRUE(pisca.Form().Mudado());
}

TEST_F(Workshop, SavesUnderTheNextFreeNumber) {
  Bancada cheia({{"levels/1.sav", "pisca,0,500,0,0\n765,860,250,480,2\n"}}, "");
  ASSERT_TRUE(cheia.Play(PoeEm(Tijolo(2, 1)) + kCtrlS + "key 13\n"));
  EXPECT_EQ(ReadFile(cheia.Level(2)), "pisca,0,500,0,0\n1025,1350,250,480,1\n");
  EXPECT_FALSE(cheia.Form().Mudado());
  Mesa jogo({{"levels/1.sav", ReadFile(cheia.Level(2))}});
  const stage::TwipRect em_jogo = jogo.Jogo().Box(1).Area();
  const stage::TwipRect desenhado = cheia.Form().Box(1).Area();
  EXPECT_EQ(std::tie(em_jogo.left, em_jogo.top, em_jogo.width, em_jogo.height),
            std::tie(desenhado.left, desenhado.top, desenhado.width, desenhado.height))
      << "it lies in play where it was drawn";
  // Another's level stays beside it.
  ASSERT_TRUE(cheia.Play(std::string(kCtrlS) + "text 1\nkey 13\n"));
  EXPECT_EQ(ReadFile(cheia.Level(1)), "pisca,0,500,0,0\n1025,1350,250,480,1\n");
  EXPECT_EQ(ReadFile(cheia.folder.Path() / "levels" / "1.sav.old"), "pisca,0,500,0,0\n765,860,250,480,2\n");
  // A map of the same.
  ASSERT_TRUE(cheia.Play("key 77 2\ntext Um\nkey 13\n"));
  EXPECT_EQ(desenho::SavFromMap(ReadFile(cheia.folder.Path() / "levels" / "1.txt")),
            ReadFile(cheia.Level(1)));
}

TEST_F(Workshop, SaysWhichFileCannotBeReadOrWritten) {
  Bancada ruim({{"levels/2.sav", "pisca,0,500,0,0\n765,860,250,480,2\n765,860,250,480,99\n"}, {"plain", ""}},
               "levels/9.sav");
  ASSERT_TRUE(ruim.Play("beats 1\n"));
  EXPECT_TRUE(ruim.Words().starts_with("Não se lê " + Arquivo("levels", "9.sav"))) << ruim.Words();
  ASSERT_TRUE(ruim.Play("key 79 2\ntext 2\nkey 13\n"));
  EXPECT_EQ(ruim.Words(), "Ficou de fora: record 3, field 5: no such type of block");
  EXPECT_EQ(ruim.Blocks().size(), 1U);
  const std::string dentro = stage::TextOf(ruim.folder.Path() / "plain" / "1.sav");
  ASSERT_TRUE(ruim.Play(PoeEm(Tijolo(8, 4)) + kCtrlS + "text " + dentro + "\nkey 13\n"));
  EXPECT_TRUE(ruim.Words().starts_with("Não se grava " + Arquivo("plain", "1.sav"))) << ruim.Words();
  EXPECT_TRUE(ruim.Form().Mudado());
}

TEST_F(Workshop, AsksForUnsavedWorkAtTheEnd) {
  EXPECT_EQ(Depois(PoeEm(Tijolo(2, 1)) + "close\nform\nkey 27\nform\nkey 27\nform\nkey 27\n").size(), 1U);
  EXPECT_EQ(bancada.Forms(), "FrmPergunta game FrmPergunta ");
  EXPECT_FALSE(bancada.Play("close\nkey 13\nkey 13\n"));
  EXPECT_EQ(ReadFile(bancada.Level(1)), "pisca,0,500,0,0\n1025,1350,250,480,1\n");
}

TEST_F(Workshop, KeepsUnsavedWorkAside) {
  const auto rascunho = [](Bancada& de) { return desenho::Guarda(de.platform->Folders()).Rascunho(); };
  Depois(PoeEm(Tijolo(2, 1)) + "beats 10\n");
  EXPECT_FALSE(rascunho(bancada));
  Depois("beats 70\n");
  ASSERT_TRUE(rascunho(bancada));
  const std::string guardado = desenho::SavDe(*rascunho(bancada));
  EXPECT_FALSE(bancada.Play(PoeEm(Tijolo(4, 1)) + "quit\n"));
  bancada.platform->FinishWorks();
  EXPECT_EQ(rascunho(bancada)->blocos.size(), 2U) << "the session's end asks nothing and loses nothing";

  // Who opens another level and thinks better of it keeps the drawing.
  Bancada volta;
  ASSERT_TRUE(volta.Play(PoeEm(Tijolo(2, 1)) + "beats 70\nkey 79 2\nkey 9\nkey 13\nkey 27\n"));
  EXPECT_EQ(volta.Blocks().size(), 1U);
  EXPECT_FALSE(volta.Play("quit\n"));
  volta.platform->FinishWorks();
  EXPECT_TRUE(rascunho(volta));

  // Who says neither yes nor no is asked again.
  for (const char* const nada : {"quit\n", "key 27\nkey 27\n"}) {
    Bancada calada({{"levels/rascunho.sav", guardado}}, "");
    EXPECT_FALSE(calada.Play(nada));
    calada.platform->FinishWorks();
    EXPECT_TRUE(rascunho(calada));
  }
  const std::pair<const char*, std::size_t> respostas[] = {{"key 13\n", 1}, {"key 9\nkey 13\n", 0}};
  for (const auto& [resposta, blocos] : respostas) {
    Bancada outra({{"levels/rascunho.sav", guardado}}, "");
    ASSERT_TRUE(outra.Play(std::string("form\n") + resposta));
    EXPECT_EQ(outra.Forms(), "FrmPergunta ");
    EXPECT_EQ(outra.Blocks().size(), blocos);
    EXPECT_EQ(outra.Form().Mudado(), blocos > 0);
    EXPECT_EQ(rascunho(outra).has_value(), blocos > 0);
  }
}

TEST_F(Workshop, TriesTheLevelInAFolderOfItsOwn) {
  WriteFile(bancada.folder.Path() / "config.ini", "[SETUP]\r\nVkorv=150\r\n");
  Depois(PoeEm(Tijolo(2, 1)) + "beats 80\nkey 116\nbeats 30\n");
  const auto antes = ReadFile(bancada.folder.Path() / "config.ini");
  // The ball flies for a while and is lost three times; Esc comes back.
  std::string jogo;
  for (int vez = 0; vez < 6; ++vez) jogo += "key 32\nbeats 400\n";
  Depois(jogo + "key 27\nbeats 2\n");
  EXPECT_EQ(bancada.Blocks(), std::vector(1, Tijolo(2, 1)));
  EXPECT_EQ(Depois(PoeEm(Tijolo(4, 1))).size(), 2U) << "the hand is on the drawing again";
  EXPECT_EQ(ReadFile(bancada.folder.Path() / "config.ini"), antes);
  EXPECT_FALSE(std::filesystem::exists(bancada.folder.Path() / "kv_his.dat"));
  Depois("key 116\nbeats 9\n");
  EXPECT_FALSE(bancada.Play("quit\n")) << "the session ends in play too";
}

TEST_F(Workshop, RestsWhenNothingBlinks) {
  Depois(PoeEm(Tijolo(2, 1)) + "beats 200\n");
  EXPECT_GE(bancada.oficina->Palco.Timers().NextBeat(), bancada.platform->Now() + std::chrono::hours(1));
}

/// One of the game's levels, drawn brick by brick without the grid, is the same file but for the order.
TEST_F(Workshop, CanDrawALevelOfTheGame) {
  const auto ordenado = [](std::vector<Block> blocos) {
    std::sort(blocos.begin(), blocos.end(), [](const Block& a, const Block& b) {
      return std::tie(a.top, a.left) < std::tie(b.top, b.left);
    });
    return blocos;
  };
  const std::string sav = ReadFile(std::filesystem::path(KORVANE_SOURCE) / "assets" / "levels" / "9.sav");
  const desenho::Desenho fase = desenho::LeDesenho(sav).desenho;
  const Block& um = fase.blocos.front();
  const Block normal{.top = um.top, .left = um.left, .height = 250, .width = 480, .type = 1};
  // The first is made as large as all are and looked at by the middle button.
  std::string lines = "key 71\n" + PoeEm(normal) + Arrasta(normal, normal) + "drag " +
                      Em(normal.Right(), normal.Bottom()) + ' ' + Em(um.Right(), um.Bottom()) + "\nwheel " +
                      std::to_string(1 - um.type) + "\nmove " + Meio(um) +
                      "\npress middle\nrelease\nkey 27\n";
  int tipo = um.type;
  for (auto bloco = std::next(fase.blocos.begin()); bloco != fase.blocos.end(); ++bloco) {
    lines += "wheel " + std::to_string(tipo - bloco->type) + '\n' + PoeEm(*bloco);
    tipo = bloco->type;
  }
  EXPECT_EQ(ordenado(Depois(lines)), ordenado(fase.blocos));
}

}  // namespace
