// What was done is undone, step by step.
#include "oficina/desenho/historia.h"

#include <gtest/gtest.h>

#include <random>

#include "oficina/desenho/edicao.h"
#include "tests/oficina/fases.h"

namespace {

using namespace desenho;
using tests::Tijolo;

/// Any of the things that a hand does.
Desenho Mexido(const Desenho& desenho, std::mt19937& acaso) {
  const auto ate = [&](int fim) { return int(acaso() % unsigned(fim)); };
  const auto ponto = [&] { return Ponto{ate(14000) - 1000, ate(9000) - 1000}; };
  const Escolha escolha = NoElastico(desenho, ponto(), ponto());
  const Block modelo{0, 0, ate(400) + 1, ate(900) + 1, ate(kLastType) + 1};
  const Feito mesmo{desenho, {}};
  const int que = ate(6);
  if (que == 0) return Apaga(desenho, escolha.size() < 9 ? escolha : Escolha{});
  if (que == 1) return Duplica(desenho, escolha).value_or(mesmo).desenho;
  if (que == 2) return Pinta(desenho, modelo, ponto(), ponto()).value_or(mesmo).desenho;
  if (que == 3) return Estica(desenho, escolha, {ate(3) - 1, ate(3) - 1}, ponto());
  if (que == 4) return {{modelo.type, 500 + ate(9000), ate(kLastBonus + 1)}, desenho.blocos};
  return Move(desenho, escolha, {ate(2000) - 1000, ate(2000) - 1000});
}

TEST(Historia, GoesBackToTheStartAndForthAgainOverWhateverWasDone) {
  std::mt19937 acaso(20);
  std::vector<Desenho> passos{LeDesenho(tests::Fase(19)).desenho};
  Historia historia(passos.front());
  for (int i = 0; i < 1500; ++i) {
    const Desenho novo = Mexido(historia.Agora(), acaso);
    ASSERT_TRUE(Vale(novo)) << i;
    if (novo != passos.back()) passos.push_back(novo);
    historia.Muda(novo);
  }
  ASSERT_GT(passos.size(), 500U);
  for (std::size_t i = passos.size(); i-- > 0;) {
    ASSERT_EQ(historia.Agora(), passos[i]) << i;
    ASSERT_EQ(historia.Desfaz(), i > 0) << i;
  }
  for (const Desenho& passo : passos) {
    ASSERT_EQ(historia.Agora(), passo);
    historia.Refaz();
  }
  EXPECT_FALSE(historia.PodeRefazer());
}

TEST(Historia, TakesAGestureBackAsAWholeAndForgetsWhatWasUndone) {
  const auto em = [](int left) { return Desenho{{}, {Tijolo(left, 0)}}; };
  Historia historia(em(0));
  const auto arrasta = [&](int gesto, std::initializer_list<int> lugares) {
    for (const int lugar : lugares) historia.Muda(em(lugar), gesto);
  };
  arrasta(1, {10, 20, 30});
  arrasta(2, {40, 50, 30});  // leads nowhere
  arrasta(2, {60, 70});      // and goes on
  arrasta(0, {80, 90});
  std::vector<int> lugares;
  while (historia.Desfaz()) lugares.push_back(historia.Agora().blocos[0].left);
  EXPECT_EQ(lugares, (std::vector<int>{80, 70, 30, 0}));
  historia.Refaz();
  historia.Muda(em(30));  // as it is already
  EXPECT_TRUE(historia.PodeRefazer());
  arrasta(1, {35});  // after it was redone it is another gesture
  EXPECT_FALSE(historia.Refaz());
  EXPECT_TRUE(historia.Desfaz());
  EXPECT_EQ(historia.Agora(), em(30));
}

}  // namespace
