// Drawings travel in addresses, and nothing else comes out of one.
#include "oficina/desenho/endereco.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/oficina/fases.h"

namespace {

using namespace desenho;

constexpr std::string_view kLetras = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";

/// As many blocks as there may be, each unlike the one before it.
Desenho Cheio() {
  std::mt19937 acaso(7);
  const auto ate = [&](int fim) { return int(acaso() % unsigned(fim)); };
  Desenho desenho{{kLastType, Regra::kMaiorIntervalo, kAllBonuses}, {}};
  while (int(desenho.blocos.size()) < kMostBlocks)
    desenho.blocos.push_back({ate(3751), ate(6000), ate(3751) + 1, ate(6000) + 1, ate(kLastType) + 1});
  return desenho;
}

TEST(Endereco, BringsEveryDrawingBackExactly) {
  std::vector<Desenho> desenhos{{}, Cheio(), {{}, {{0, 0, Field::kBottom, Field::kRight, kLastType}}}};
  for (int numero = 1; numero <= tests::kFases; ++numero)
    desenhos.push_back(LeDesenho(tests::Fase(numero)).desenho);
  for (const Desenho& desenho : desenhos) {
    const std::optional<std::string> endereco = EnderecoDe(desenho);
    ASSERT_TRUE(endereco);
    EXPECT_LE(endereco->size(), kMaiorEndereco);
    EXPECT_EQ(endereco->find_first_not_of(kLetras), std::string::npos);
    EXPECT_EQ(DoEndereco(*endereco), desenho) << *endereco;
  }
}

TEST(Endereco, ThatWasSentStaysGood) {
  const Desenho desenho{{4, 1200, 7},
                        {tests::Tijolo(370, 765), tests::Tijolo(860, 765), {500, 600, 70, 80, 20}}};
  EXPECT_EQ(EnderecoDe(desenho), "1ICWDgGCB9AeAL9AuXg1xQBGAKAPoCWAgMrs");
  const Desenho fila{{}, {tests::Tijolo(370, 765), tests::Tijolo(860, 765), tests::Tijolo(1350, 765)}};
  EXPECT_EQ(EnderecoDe(fila), "1AA-gAGCB9AeAL9AuXg1z4f-Iq");
}

TEST(Endereco, IsNoneOfADrawingThatIsNotValid) {
  const Regra regras[] = {{kLastType + 1, 500, 0}, {1, 499, 0}, {0, 65536, 0}, {0, 500, 9}, {0, 500, -1}};
  for (const Regra& regra : regras) EXPECT_FALSE(EnderecoDe({regra, {}})) << SavDe({regra, {}});
  EXPECT_FALSE(EnderecoDe({{}, {tests::Tijolo(11521, 0)}}));
  EXPECT_FALSE(EnderecoDe({{}, std::vector<Block>(599, tests::Tijolo(0, 0))}));
}

TEST(Endereco, OfAnythingElseIsRefused) {
  const std::string bom = EnderecoDe(LeDesenho(tests::Fase(9)).desenho).value();
  std::vector<std::string> maus = {"",
                                   "1",
                                   "1AAAA",
                                   "1AAAAAAAAAAAA",
                                   bom + 'A',
                                   bom + bom,
                                   '#' + bom,
                                   bom + '=',
                                   std::string(kMaiorEndereco, '_'),
                                   std::string(1 << 20, 'A')};
  for (std::size_t i = 0; i < bom.size(); ++i) {
    maus.push_back(bom.substr(0, i));
    maus.push_back(bom.substr(0, i) + bom.substr(i + 1));
    for (const char letra : {'A', '_', '%', '\0', char(bom[i] + 1), char(bom[i] ^ 0x20)}) {
      maus.push_back(bom);
      maus.back()[i] = letra;
    }
  }
  std::erase(maus, bom);
  EXPECT_GT(maus.size(), bom.size() * 7);
  for (const std::string& mau : maus) EXPECT_EQ(DoEndereco(mau), std::nullopt) << mau.substr(0, 400);
}

}  // namespace
