// Drawings are read as far as they can be read, and written as the game reads them.
#include "oficina/desenho/desenho.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "oficina/desenho/recorte.h"
#include "tests/oficina/fases.h"

namespace {

using namespace desenho;
using tests::Tijolo;

const std::string kA = "600,3000,250,480,5\n";
const std::string kB = "900,3000,250,480,22\n";

std::string Vezes(int quantas, const std::string& texto) {
  std::string todas;
  for (int i = 0; i < quantas; ++i) todas += texto;
  return todas;
}

struct Caso {
  std::string texto;
  std::string blocos;  // as records
  Regra regra;
  std::vector<const char*> faltas;  // their beginnings
};

const Caso kCasos[] = {
    {"", "", {}, {}},
    {"pisca,5,800,7,0\n" + kA + kB, kA + kB, {5, 800, 7}, {}},
    {"600.9,3000,250,480,4.6\r\n", kA, {}, {}},
    {"pisca,5,800,7,0\n" + kA + "600,x,250,480,5\n0,0,250,480,23\n" + kB,
     kA + kB,
     {5, 800, 7},
     {"record 3, field 2: ", "record 4, field 5: no such type"}},
    {"-1,0,250,480,5\n0,11521,250,480,5\n7253,0,250,480,5\n0,0,0,480,5\n0,0,250,40000,5\n" + kA,
     kA,
     {},
     {"record 1, field 1: above", "record 2, field 2: right", "record 3, field 1: too low",
      "record 4, field 3: the block has no height", "record 5, field 4: "}},
    {kA + "600,3000,250", kA, {}, {"record 2, field 4: the file ends"}},
    {Vezes(600, kA), Vezes(598, kA), {}, {"record 599: more than 598", "record 600: more than 598"}},
    // The blinking of the first rule stays, as in play; a rule that must not be leaves all as it was.
    {"pisca,5,800,7,0\npisca,0,900,8,0\npisca,23,900,1,0\npisca,4,900,9,0\npisca,4,70000,1,0\n",
     "",
     {5, 800, 8},
     {"record 3, field 2: ", "record 4, field 4: ", "record 5, field 3: "}},
    {"pisca,0,800,0,0\n", "", {0, 800, 0}, {}},
    // The last record that is begun within the limit is no other one for that.
    {kA + Vezes(65500, " ") + "600,4000,250,480,12\n" + kB,
     kA,
     {},
     {"the file is longer than 65536", "record 2, field 5: the file ends"}},
};

TEST(Desenho, IsReadAsFarAsItGoes) {
  for (const Caso& caso : kCasos) {
    SCOPED_TRACE(caso.texto.substr(0, 120));
    const Lido lido = LeDesenho(caso.texto);
    EXPECT_EQ(Registros(lido.desenho.blocos), caso.blocos);
    EXPECT_EQ(lido.desenho.regra, caso.regra);
    EXPECT_TRUE(Vale(lido.desenho));
    ASSERT_EQ(lido.faltas.size(), caso.faltas.size());
    for (std::size_t i = 0; i < lido.faltas.size(); ++i)
      EXPECT_TRUE(lido.faltas[i].Text().starts_with(caso.faltas[i])) << lido.faltas[i].Text();
  }
}

TEST(Desenho, IsWrittenAsTheLevelsAreWithTheLowestBlockLast) {
  for (int numero = 1; numero <= tests::kFases; ++numero) {
    Lido lido = LeDesenho(tests::Fase(numero));
    EXPECT_TRUE(lido.faltas.empty());
    EXPECT_EQ(SavDe(lido.desenho), tests::Fase(numero));
    Desenho& fase = lido.desenho;
    std::ranges::reverse(fase.blocos);
    EXPECT_FALSE(Confere(fase).fault);
    EXPECT_EQ(LeDesenho(SavDe(fase)).desenho, EmOrdem(fase));
    for (std::size_t i = 0; i < fase.blocos.size(); ++i)
      EXPECT_EQ(fase.blocos[BlocoDoRegistro(fase, int(i) + 2).value()], EmOrdem(fase).blocos[i]);
  }
  const Desenho dois{{}, {Tijolo(0, 500), Tijolo(0, 100)}};
  for (const int record : {-1, 0, 1, 4}) EXPECT_EQ(BlocoDoRegistro(dois, record), std::nullopt) << record;
}

TEST(Recorte, GivesBackWhatWasCopiedAndNothingElse) {
  const Desenho fase = LeDesenho(tests::Fase(24)).desenho;
  const Escolha escolha{0, 7, 8, 40};
  EXPECT_EQ(DoRecorte(Recorte(fase, escolha)), Escolhidos(fase, escolha));
  EXPECT_EQ(DoRecorte(tests::Fase(24)), fase.blocos);
  const std::string maus[] = {"",        "pisca,0,500,0,0\n", "any words",
                              kA + "\n", kA + "0,0,1,1,0",    Vezes(1 << 20, ",")};
  for (const std::string& texto : maus) EXPECT_EQ(DoRecorte(texto), std::nullopt) << texto.substr(0, 60);
}

}  // namespace
