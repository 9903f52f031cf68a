// What a hand does to a drawing.
#include "oficina/desenho/edicao.h"

#include <gtest/gtest.h>

#include <climits>

#include "tests/oficina/fases.h"

namespace {

using namespace desenho;
using tests::Tijolo;

/// Three bricks in a row, then one of another size below.
const Desenho kQuatro{{}, {Tijolo(370, 765), Tijolo(860, 765), Tijolo(1350, 765), {1025, 370, 500, 970, 3}}};

TEST(Edicao, PlacesGoToTheNearestOfTheGrid) {
  struct Caso {
    Malha malha;
    Ponto canto, nela;
  };
  const Caso casos[] = {{kMalha, {370, 765}, {370, 765}},      {kMalha, {492, 829}, {370, 765}},
                        {kMalha, {493, 830}, {615, 895}},      {kMalha, {-1, -1}, {-120, -15}},
                        {kMalhaFina, {395, 779}, {419, 791}},  {kMalhaFina, {394, 777}, {370, 765}},
                        {kSemMalha, {1234, -56}, {1234, -56}}, {kMalha, {11999, 7501}, {11885, 7525}}};
  for (const auto& [malha, canto, nela] : casos) {
    EXPECT_EQ(NaMalha(canto, malha), nela) << canto.x << ' ' << canto.y;
    EXPECT_EQ(NaMalha(nela, malha), nela) << canto.x << ' ' << canto.y;
  }
}

TEST(Edicao, BlocksAreMadeToFitTheField) {
  const std::pair<Block, Block> casos[] = {{{-1, -1, 250, 480, 1}, {0, 0, 250, 480, 1}},
                                           {{9000, 12000, 250, 480, 1}, {7252, 11520, 250, 480, 1}},
                                           {{50, 50, 9000, 13000, 1}, {0, 0, 7502, 12000, 1}},
                                           {{50, 60, 0, -5, 1}, {50, 60, 1, 1, 1}},
                                           {{7252, 11520, 250, 480, 1}, {7252, 11520, 250, 480, 1}}};
  for (const auto& [fora, dentro] : casos) EXPECT_EQ(NoCampo(fora), dentro) << fora.top << ' ' << fora.left;
}

TEST(Edicao, FindsWhatIsUnderAPointOrABand) {
  Desenho desenho = kQuatro;
  desenho.blocos.push_back(Tijolo(600, 900));  // on top of the first and the second
  const std::pair<Ponto, std::optional<std::size_t>> pontos[] = {
      {{370, 765}, 0},   {{849, 1014}, 4},  {{369, 800}, {}}, {{855, 800}, {}}, {{1079, 1014}, 4},
      {{1080, 1014}, 1}, {{1830, 800}, {}}, {{400, 1149}, 3}, {{700, 1149}, 4}, {{700, 1150}, 3}};
  for (const auto& [ponto, bloco] : pontos)
    EXPECT_EQ(BlocoEm(desenho, ponto), bloco) << ponto.x << ' ' << ponto.y;
  struct Caso {
    Ponto a, b;
    Escolha escolha;
  };
  const Caso faixas[] = {{{0, 0}, {369, 9000}, {}},         {{0, 0}, {370, 9000}, {0, 3}},
                         {{1829, 764}, {860, 765}, {1, 2}}, {{5000, 5000}, {0, 0}, {0, 1, 2, 3, 4}},
                         {{850, 800}, {859, 899}, {}},      {{900, 800}, {900, 800}, {1}}};
  for (const auto& [a, b, escolha] : faixas)
    EXPECT_EQ(NoElastico(desenho, a, b), escolha) << a.x << ' ' << b.x;
}

TEST(Edicao, PaintsARowWhereThereIsRoom) {
  struct Caso {
    Ponto de, ate;
    std::vector<Ponto> cantos;
  };
  const Caso casos[] = {
      {{3000, 3000}, {3400, 3100}, {{3000, 3000}}},
      {{3000, 3000}, {3489, 3259}, {{3000, 3000}}},
      {{3000, 3000}, {3990, 3259}, {{3000, 3000}, {3490, 3000}, {3980, 3000}}},
      {{3000, 3000}, {2999, 3000}, {{3000, 3000}, {2510, 3000}}},
      {{3000, 3000}, {3489, 3260}, {{3000, 3000}, {3000, 3260}}},
      {{3000, 3000}, {2600, 2400}, {{3000, 3000}, {3000, 2740}, {3000, 2480}, {3000, 2220}}},
      // Over what stands there already, and up to it.
      {{0, 765}, {2000, 765}, {{1960, 765}}},
      {{1840, 765}, {500, 765}, {{1840, 765}}},
      // Out of the field.
      {{11200, 3000}, {INT_MAX, 3000}, {{11200, 3000}}},
      {{-100, 3000}, {500, 3000}, {{390, 3000}}},
      {{3000, 6990}, {3000, INT_MAX}, {{3000, 6990}, {3000, 7250}}},
  };
  for (const auto& [de, ate, cantos] : casos) {
    SCOPED_TRACE(std::to_string(de.x) + " to " + std::to_string(ate.x));
    const auto feito = Pinta(kQuatro, Tijolo(0, 0), de, ate);
    ASSERT_TRUE(feito);
    std::vector<Ponto> pintados;
    for (const Block& bloco : Escolhidos(feito->desenho, feito->novos)) {
      pintados.push_back({bloco.left, bloco.top});
      EXPECT_EQ(bloco, Tijolo(bloco.left, bloco.top));
    }
    EXPECT_EQ(pintados, cantos);
    EXPECT_EQ(Apaga(feito->desenho, feito->novos), kQuatro);
  }
}

TEST(Edicao, NeverGoesOverTheMostBlocks) {
  const Desenho quase{{}, std::vector<Block>(597, Tijolo(3000, 3000))};
  EXPECT_EQ(Poe(quase, {Tijolo(0, 0)})->novos, Escolha{597});
  EXPECT_FALSE(Poe(quase, {Tijolo(0, 0), Tijolo(0, 0)}));
  EXPECT_TRUE(Pinta(quase, Tijolo(0, 0), {0, 0}, {10, 10}));
  EXPECT_FALSE(Pinta(quase, Tijolo(0, 0), {0, 0}, {600, 10}));
  EXPECT_TRUE(Duplica(quase, {5}));
  EXPECT_FALSE(Duplica(quase, {5, 6}));
}

TEST(Edicao, MovesWhatIsChosenAsFarAsTheFieldGoes) {
  const std::pair<Ponto, Ponto> passos[] = {{{245, -130}, {245, -130}},
                                            {{-371, 0}, {-370, 0}},
                                            {{0, INT_MIN}, {0, -765}},
                                            {{INT_MAX, INT_MAX}, {12000 - 1340, 7502 - 1525}}};
  for (const auto& [passo, feito] : passos) {
    const Desenho movido = Move(kQuatro, {1, 3}, passo);
    for (const std::size_t i : {0U, 2U}) EXPECT_EQ(movido.blocos[i], kQuatro.blocos[i]);
    for (const std::size_t i : {1U, 3U}) {
      EXPECT_EQ(movido.blocos[i].left - kQuatro.blocos[i].left, feito.x) << passo.x;
      EXPECT_EQ(movido.blocos[i].top - kQuatro.blocos[i].top, feito.y) << passo.y;
      EXPECT_EQ(movido.blocos[i].width, kQuatro.blocos[i].width);
    }
  }
  EXPECT_EQ(Move(kQuatro, {}, {100, 100}), kQuatro);
}

TEST(Edicao, EachHandleMovesItsEdges) {
  struct Caso {
    Alca alca;
    Ponto passo;
    Block um, outro;
  };
  const Block fino{2000, 5000, 40, 480, 2};
  const Desenho dois{{}, {Tijolo(3000, 1000), fino}};
  const Caso casos[] = {
      {{-1, 0}, {-100, 7}, {1000, 2900, 250, 580, 1}, {2000, 4900, 40, 580, 2}},
      {{1, 0}, {-100, 7}, {1000, 3000, 250, 380, 1}, {2000, 5000, 40, 380, 2}},
      {{0, -1}, {7, -50}, {950, 3000, 300, 480, 1}, {1950, 5000, 90, 480, 2}},
      {{0, 1}, {7, 50}, {1000, 3000, 300, 480, 1}, {2000, 5000, 90, 480, 2}},
      {{1, 1}, {10, 20}, {1000, 3000, 270, 490, 1}, {2000, 5000, 60, 490, 2}},
      {{-1, -1}, {10, -20}, {980, 3010, 270, 470, 1}, {1980, 5010, 60, 470, 2}},
      // Down to the least size and up to the edges of the field. What is smaller than that does not shrink.
      {{1, 0}, {-9000, 0}, {1000, 3000, 250, 60, 1}, {2000, 5000, 40, 60, 2}},
      {{-1, 1}, {9000, -9000}, {1000, 3420, 250, 60, 1}, {2000, 5420, 40, 60, 2}},
      {{-1, -1}, {-9000, -9000}, {0, 0, 1250, 3480, 1}, {1000, 2000, 1040, 3480, 2}},
      {{1, 1}, {INT_MAX, INT_MAX}, {1000, 3000, 5712, 7000, 1}, {2000, 5000, 5502, 7000, 2}}};
  for (const auto& [alca, passo, um, outro] : casos) {
    const Desenho esticado = Estica(dois, {0, 1}, alca, passo);
    EXPECT_EQ(Registros(esticado.blocos), Registros({um, outro}))
        << alca.x << ' ' << alca.y << ' ' << passo.x;
  }
  EXPECT_EQ(Estica(dois, {1}, {1, 1}, {5, 5}).blocos.front(), dois.blocos.front());
}

TEST(Edicao, CopiesMirrorsAndChangesWhatIsChosen) {
  const auto dobro = Duplica(kQuatro, {0, 3});
  EXPECT_EQ(dobro->novos, (Escolha{4, 5}));
  EXPECT_EQ(dobro->desenho.blocos[4], Tijolo(615, 895));
  EXPECT_EQ(dobro->desenho.blocos[5].left, 615);
  const auto no_canto = Duplica({{}, {Tijolo(11520, 7252)}}, {0}, kMalhaFina);
  EXPECT_EQ(no_canto->desenho.blocos[1], Tijolo(11471, 7226));

  const auto lados = [](const Desenho& desenho) {
    std::vector<int> esquerdas;
    for (const Block& bloco : desenho.blocos) esquerdas.push_back(bloco.left);
    return esquerdas;
  };
  EXPECT_EQ(lados(EspelhaNoCampo(kQuatro, Tudo(kQuatro))), (std::vector<int>{11150, 10660, 10170, 10660}));
  EXPECT_EQ(lados(EspelhaEmSi(kQuatro, {2, 3})), (std::vector<int>{370, 860, 370, 860}));
  EXPECT_EQ(EspelhaEmSi(kQuatro, {}), kQuatro);
  EXPECT_EQ(lados(Apaga(kQuatro, {0, 2})), (std::vector<int>{860, 370}));
  const Desenho mudado = MudaTipo(kQuatro, {1, 3}, kHard);
  EXPECT_EQ(Registros(mudado.blocos),
            "765,370,250,480,1\n765,860,250,480,20\n765,1350,250,480,1\n1025,370,500,970,20\n");
}

}  // namespace
