// The workshop sends drawings by their address and opens them from it.
#include <gtest/gtest.h>

#include "oficina/desenho/endereco.h"
#include "tests/oficina/bancada.h"

namespace {

using namespace tests;

const desenho::Desenho kDois{.regra = {.pisca = 2, .intervalo = 700, .barrado = 7},
                             .blocos = {{.top = 765, .left = 860, .height = 250, .width = 480, .type = 2},
                                        {.top = 1025, .left = 860, .height = 250, .width = 480, .type = 20}}};

TEST(Addresses, AreCopiedAndOpenTheSameDrawing) {
  Bancada uma({{"levels/1.sav", desenho::SavDe(kDois)}}, "levels/1.sav");
  ASSERT_TRUE(uma.Play("key 76 2\nbeats 1\n"));
  EXPECT_EQ(uma.Words(), "Endereço copiado");
  Bancada outra({}, uma.platform->Clipboard());
  ASSERT_TRUE(outra.Play("form\nkey 9\nkey 13\nform\n"));
  EXPECT_EQ(outra.Forms(), "FrmPergunta game ");
  EXPECT_EQ(outra.Form().Agora(), kDois);
}

TEST(Addresses, AreOfferedToBePlayed) {
  Bancada bancada({{"levels/rascunho.sav", desenho::SavDe({.regra = {}, .blocos = {kDois.blocos[1]}})}},
                  '#' + *desenho::EnderecoDe(kDois));
  // The ball is launched; where play ends there is word of the draft, which takes the drawing's place.
  ASSERT_TRUE(
      bancada.Play("form\nkey 13\nbeats 30\nkey 32\nbeats 90\nkey 27\nbeats 9\nform\nkey 13\nbeats 1\n"));
  EXPECT_EQ(bancada.Forms(), "FrmPergunta FrmPergunta ");
  EXPECT_EQ(bancada.Blocks(), std::vector(1, kDois.blocos[1]));
  EXPECT_FALSE(std::filesystem::exists(bancada.folder.Path() / "kv_his.dat"));
  ASSERT_TRUE(bancada.Play("key 90 2\n"));
  EXPECT_EQ(bancada.Form().Agora(), kDois);

  Bancada fim({{"levels/rascunho.sav", desenho::SavDe(kDois)}}, '#' + *desenho::EnderecoDe(kDois));
  EXPECT_FALSE(fim.Play("key 13\nbeats 30\nquit\n")) << "the session ends in play";
}

TEST(Addresses, ThatCannotBeReadLeaveAnEmptyDrawing) {
  std::string trocada = *desenho::EnderecoDe(kDois);
  trocada[trocada.size() / 2] = trocada[trocada.size() / 2] == 'A' ? 'B' : 'A';
  for (const std::string& ruim : {std::string(), std::string("levels"), std::string(100000, 'A'), trocada}) {
    Bancada bancada({}, '#' + ruim);
    ASSERT_TRUE(bancada.Play("form\nbeats 1\n"));
    EXPECT_EQ(bancada.Forms(), "game ");
    EXPECT_EQ(bancada.Words(), "O endereço não traz uma tela que se leia") << ruim.substr(0, 80);
    EXPECT_EQ(bancada.Form().Agora(), desenho::Desenho{});
    ASSERT_TRUE(bancada.Play("key 76 2\nbeats 1\n"));
    EXPECT_EQ(bancada.Words(), "Não há o que mandar");
    EXPECT_EQ(bancada.platform->Clipboard(), "");
  }
}

}  // namespace
