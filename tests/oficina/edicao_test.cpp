// What a hand does to a drawing.
#include "oficina/desenho/edicao.h"

#include <gtest/gtest.h>

#include <climits>

#include "tests/oficina/fases.h"

namespace {

using namespace desenho;
using tests::Tijolo;

const Block kFino{2000, 5000, 40, 970, 2};
const Desenho kDois{{}, {Tijolo(3000, 1000), kFino}};
const Escolha kAmbos{0, 1};

TEST(Edicao, PlacesGoToTheNearestOfTheGrid) {
  struct Caso {
    Malha malha;
    Ponto canto, nela;
  };
  const Caso casos[] = {{kMalha, {492, 829}, {370, 765}},     {kMalha, {493, 830}, {615, 895}},
                        {kMalha, {-1, -1}, {-120, -15}},      {kMalhaFina, {395, 779}, {419, 791}},
                        {kMalhaFina, {394, 777}, {370, 765}}, {kSemMalha, {1234, -56}, {1234, -56}}};
  for (const auto& [malha, canto, nela] : casos) EXPECT_EQ(NaMalha(canto, malha), nela) << canto.x;
}

TEST(Edicao, FindsWhatIsUnderAPointOrABand) {
  const Desenho pilha{{}, {Tijolo(370, 765), Tijolo(860, 765), Tijolo(600, 900)}};
  const std::pair<Ponto, std::optional<std::size_t>> pontos[] = {{{370, 765}, 0},   {{849, 1014}, 0},
                                                                 {{369, 800}, {}},  {{855, 800}, {}},
                                                                 {{1080, 1014}, 1}, {{1340, 800}, {}}};
  for (const auto& [ponto, bloco] : pontos) EXPECT_EQ(BlocoEm(pilha, ponto), bloco) << ponto.x;
  struct Caso {
    Ponto a, b;
    Escolha escolha;
  };
  const Caso faixas[] = {{{0, 0}, {369, 9000}, {}},
                         {{0, 0}, {370, 9000}, {0}},
                         {{1339, 900}, {849, 765}, {0, 1, 2}},
                         {{850, 800}, {859, 899}, {}},
                         {{900, 800}, {900, 800}, {1}}};
  for (const auto& [a, b, escolha] : faixas) EXPECT_EQ(NoElastico(pilha, a, b), escolha) << a.x << ' ' << b.x;
}

TEST(Edicao, PaintsARowWhereThereIsRoom) {
  struct Caso {
    Ponto de, ate;
    std::vector<Block> pintados;
  };
  const Caso casos[] = {
      {{300, 300}, {789, 559}, {Tijolo(300, 300)}},
      {{300, 300}, {1290, 820}, {Tijolo(300, 300), Tijolo(790, 300), Tijolo(1280, 300)}},
      {{600, 300}, {599, 300}, {Tijolo(600, 300), Tijolo(110, 300)}},
      {{1600, 300}, {1110, 300}, {Tijolo(1600, 300), Tijolo(1110, 300)}},
      {{600, 900}, {200, 379}, {Tijolo(600, 900), Tijolo(600, 640), Tijolo(600, 380), Tijolo(600, 120)}},
      // Over what stands there, and out of the field.
      {{2600, 1000}, {4000, 1000}, {Tijolo(3580, 1000)}},
      {{11200, 300}, {INT_MAX, 300}, {Tijolo(11200, 300)}},
      {{-100, 300}, {500, 300}, {Tijolo(390, 300)}},
      {{300, 6990}, {300, INT_MAX}, {Tijolo(300, 6990), Tijolo(300, 7250)}},
  };
  for (const auto& [de, ate, pintados] : casos) {
    const auto feito = Pinta(kDois, Tijolo(0, 0), de, ate).value();
    EXPECT_EQ(Registros(Escolhidos(feito.desenho, feito.novos)), Registros(pintados)) << de.x << ' ' << ate.x;
    EXPECT_EQ(Apaga(feito.desenho, feito.novos), kDois);
  }
}

TEST(Edicao, NeverGoesOverTheMostBlocks) {
  const Desenho quase{{}, std::vector<Block>(597, Tijolo(3000, 3000))};
  EXPECT_EQ(Duplica(quase, {5})->novos, Escolha{597});
  EXPECT_FALSE(Duplica(quase, {5, 6}));
  EXPECT_TRUE(Pinta(quase, Tijolo(0, 0), {0, 0}, {10, 10}));
  EXPECT_FALSE(Pinta(quase, Tijolo(0, 0), {0, 0}, {600, 10}));
}

TEST(Edicao, ChangesWhatIsChosenAsFarAsTheFieldGoes) {
  struct Caso {
    Desenho feito;
    Block um, outro;
  };
  const Caso casos[] = {
      {Move(kDois, {1}, {245, -130}), Tijolo(3000, 1000), {1870, 5245, 40, 970, 2}},
      {Move(kDois, kAmbos, {INT_MIN, INT_MIN}), Tijolo(0, 0), {1000, 2000, 40, 970, 2}},
      {Move(kDois, kAmbos, {INT_MAX, INT_MAX}), Tijolo(9030, 6462), {7462, 11030, 40, 970, 2}},
      {Estica(kDois, {0}, {-1, 0}, {-100, 7}), {1000, 2900, 250, 580, 1}, kFino},
      {Estica(kDois, kAmbos, {1, -1}, {-100, -50}), {950, 3000, 300, 380, 1}, {1950, 5000, 90, 870, 2}},
      // Down to the least size, and up to the edges. What is smaller than that already does not shrink.
      {Estica(kDois, kAmbos, {1, 1}, {10, 20}), {1000, 3000, 270, 490, 1}, {2000, 5000, 60, 980, 2}},
      {Estica(kDois, kAmbos, {-1, 1}, {9000, -9000}), {1000, 3420, 250, 60, 1}, {2000, 5420, 40, 550, 2}},
      {Estica(kDois, kAmbos, {-1, -1}, {INT_MIN, INT_MIN}),
       {0, 0, 1250, 3480, 1},
       {1000, 2000, 1040, 3970, 2}},
      {Estica(kDois, kAmbos, {1, 1}, {INT_MAX, INT_MAX}),
       {1000, 3000, 5712, 6510, 1},
       {2000, 5000, 5502, 7000, 2}},
      {EspelhaNoCampo(kDois, kAmbos), Tijolo(8520, 1000), {2000, 6030, 40, 970, 2}},
      {EspelhaEmSi(kDois, kAmbos), Tijolo(5490, 1000), {2000, 3000, 40, 970, 2}},
      {EspelhaEmSi(kDois, {}), Tijolo(3000, 1000), kFino},
      {MudaTipo(kDois, {0}, kHard), {1000, 3000, 250, 480, kHard}, kFino},
      {Duplica(Apaga(kDois, {1}), {0})->desenho, Tijolo(3000, 1000), Tijolo(3245, 1130)},
      {Duplica({{}, {Tijolo(11520, 7252)}}, {0}, kMalhaFina)->desenho, Tijolo(11520, 7252),
       Tijolo(11471, 7226)},
      {{{}, {NoCampo({-1, 12000, 250, 480, 1}), NoCampo({50, 60, 9000, 0, 2})}},
       Tijolo(11520, 0),
       {0, 60, 7502, 1, 2}},
  };
  for (const auto& [feito, um, outro] : casos) EXPECT_EQ(Registros(feito.blocos), Registros({um, outro}));
}

}  // namespace
