// Files of the workshop: nothing that stood there is lost.
#include "oficina/desenho/guarda.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "oficina/desenho/map.h"
#include "stage/errors.h"
#include "stage/files/temp_folder.h"
#include "tests/oficina/fases.h"

namespace {

using namespace desenho;
using tools::ReadFile;
using tools::WriteFile;

class GuardaDeFases : public testing::Test {
 protected:
  /// What a later run finds.
  Guarda Outra() const { return Guarda(pastas_); }
  std::vector<std::string> Nomes() const {
    std::vector<std::string> nomes;
    for (const auto& entrada : std::filesystem::directory_iterator(pastas_.own / "levels"))
      nomes.push_back(stage::TextOf(entrada.path().filename()));
    std::ranges::sort(nomes);
    return nomes;
  }
  static Desenho Em(int left) { return {{}, {tests::Tijolo(left, 0)}}; }

  stage::TempFolder pasta_{"José 日本"};
  stage::ProgramFolders pastas_{pasta_.Path() / "own", pasta_.Path() / "installed"};

  void SetUp() override { std::filesystem::create_directory(pastas_.own); }
};

TEST_F(GuardaDeFases, OffersTheFirstNumberThatNobodyHas) {
  EXPECT_EQ(Outra().NumeroLivre(), 1);
  for (const int numero : {1, 2, 5})
    WriteFile(pastas_.installed / "levels" / (std::to_string(numero) + ".sav"), "");
  EXPECT_EQ(Outra().NumeroLivre(), 3);
  WriteFile(Outra().Fase(3), "");
  EXPECT_EQ(Outra().NumeroLivre(), 4);
  EXPECT_EQ(Outra().FaseALer(2), pastas_.installed / "levels" / "2.sav");
  EXPECT_EQ(Outra().FaseALer(3), pastas_.own / "levels" / "3.sav");
}

TEST_F(GuardaDeFases, KeepsWhatIsNotItsOwnBesideTheLevel) {
  Guarda guarda = Outra();
  const auto fase = guarda.Fase(41);
  guarda.Grava(fase, Em(1));
  guarda.Grava(fase, Em(2));
  EXPECT_EQ(ReadFile(fase), SavDe(Em(2)));
  EXPECT_EQ(Nomes(), (std::vector<std::string>{"41.sav"}));
  Outra().Grava(fase, Em(2));  // the same
  EXPECT_EQ(Nomes().size(), 1U);
  Outra().Grava(fase, Em(3));
  Outra().Grava(fase, Em(4));
  EXPECT_EQ(Nomes(), (std::vector<std::string>{"41.sav", "41.sav.old", "41.sav.old2"}));
  EXPECT_EQ(ReadFile(fase), SavDe(Em(4)));
  EXPECT_EQ(ReadFile(pastas_.own / "levels" / "41.sav.old"), SavDe(Em(2)));
  EXPECT_EQ(ReadFile(pastas_.own / "levels" / "41.sav.old2"), SavDe(Em(3)));
  guarda.GravaTexto(fase, "a map");  // another run has written since
  EXPECT_EQ(ReadFile(pastas_.own / "levels" / "41.sav.old3"), SavDe(Em(4)));
  WriteFile(fase, SavDe(Em(3)));
  guarda.Grava(fase, Em(5));  // kept already
  EXPECT_EQ(Nomes().size(), 4U);
}

TEST_F(GuardaDeFases, LeavesAllAsItWasWhereItCannotWrite) {
  Guarda guarda = Outra();
  guarda.GuardaRascunho(Em(7));
  const auto fase = guarda.Fase(41);
  WriteFile(fase, "another's");
  std::filesystem::permissions(fase, std::filesystem::perms::owner_read);
  std::filesystem::create_directory(guarda.Fase(42));
  for (const int numero : {41, 42})
    EXPECT_THROW(guarda.Grava(guarda.Fase(numero), Em(1)), stage::RuntimeError);
  EXPECT_THROW(guarda.Grava(pasta_.Path() / "no" / "folder.sav", Em(1)), stage::RuntimeError);
  EXPECT_EQ(ReadFile(fase), "another's");
  EXPECT_EQ(guarda.Rascunho(), Em(7));
}

TEST_F(GuardaDeFases, KeepsADraftUntilItIsSaved) {
  EXPECT_EQ(Outra().Rascunho(), std::nullopt);
  Outra().GuardaRascunho(Em(1));
  Outra().GuardaRascunho(Em(2));
  EXPECT_EQ(Outra().Rascunho(), Em(2));
  EXPECT_EQ(Outra().NumeroLivre(), 1);
  Outra().Grava(Outra().Fase(1), Em(2));
  EXPECT_EQ(Outra().Rascunho(), std::nullopt);
  EXPECT_EQ(Nomes(), (std::vector<std::string>{"1.sav"}));
  WriteFile(pastas_.own / "levels" / "rascunho.sav", SavDe(Em(3)) + "0,0,");
  EXPECT_EQ(Outra().Rascunho(), Em(3));
  WriteFile(pastas_.own / "levels" / "rascunho.sav", "nothing of that kind");
  EXPECT_EQ(Outra().Rascunho(), std::nullopt);
}

TEST_F(GuardaDeFases, OpensLevelsAndMaps) {
  const auto arquivo = [&](const char* nome, std::string_view texto) {
    WriteFile(pasta_.Path() / nome, texto);
    return pasta_.Path() / nome;
  };
  const Aberto mapa = Abre(arquivo("a.txt", "name: Sunrise\nmap:\n#a\n"));
  EXPECT_EQ(mapa.nome, "Sunrise");
  EXPECT_EQ(mapa.lido.desenho.blocos.size(), 2U);
  EXPECT_THROW(Abre(arquivo("b.txt", SavDe(Em(1)))), MapError);
  EXPECT_EQ(Abre(arquivo("c.sav", SavDe(Em(1)))).lido.desenho, Em(1));
  EXPECT_EQ(Abre(arquivo("d.sav", "name: Sunrise\n")).lido.faltas.size(), 1U);
  EXPECT_THROW(Abre(pasta_.Path() / "none.sav"), stage::RuntimeError);
  EXPECT_THROW(Abre(pasta_.Path()), stage::RuntimeError);
}

}  // namespace
