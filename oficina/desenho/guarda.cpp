#include "oficina/desenho/guarda.h"

#include <system_error>

#include "levels/level_file.h"
#include "oficina/desenho/map.h"
#include "stage/files/text_file.h"
#include "stage/machines/machine.h"

namespace desenho {
namespace {

using std::filesystem::path;

constexpr std::size_t kMaisBytes = 16 << 20;

bool Existe(const path& arquivo) {
  std::error_code erro;
  return std::filesystem::exists(arquivo, erro);
}

bool Tem(const path& arquivo, std::string_view texto) {
  try {
    return stage::ReadWhole(arquivo, texto.size()) == texto;
  } catch (const stage::RuntimeError&) {
    return false;
  }
}

/// Keeps what stands in the file beside it.
void PoeAoLado(const path& arquivo) {
  const std::string antigo = stage::ReadWhole(arquivo, kMaisBytes);
  for (int vez = 1;; ++vez) {
    path ao_lado = arquivo;
    ao_lado += vez == 1 ? ".old" : ".old" + std::to_string(vez);
    if (!Existe(ao_lado)) return stage::WriteWhole(ao_lado, antigo);
    if (Tem(ao_lado, antigo)) return;
  }
}

}  // namespace

Aberto Abre(const path& arquivo) {
  const std::string texto = korvane::LevelText(arquivo);
  if (arquivo.extension() != ".txt") return {{}, LeDesenho(texto)};
  Mapa mapa = LeMapa(texto);
  return {std::move(mapa.nome), {std::move(mapa.desenho), {}}};
}

int Guarda::NumeroLivre() const {
  int numero = 1;
  while (Existe(FaseALer(numero))) ++numero;
  return numero;
}

path Guarda::Fase(int numero) const { return Pasta() / (std::to_string(numero) + ".sav"); }

path Guarda::FaseALer(int numero) const { return stage::FileToRead(pastas_, Fase(numero)); }

void Guarda::Grava(const path& arquivo, const Desenho& desenho) {
  GravaTexto(arquivo, SavDe(desenho));
  EsqueceRascunho();
}

void Guarda::GravaTexto(const path& arquivo, std::string_view texto) {
  stage::machine::MakePrivateFolder(Pasta());
  const auto meu = escritos_.find(arquivo);
  const bool conhecido = Tem(arquivo, texto) || (meu != escritos_.end() && Tem(arquivo, meu->second));
  if (!conhecido && Existe(arquivo)) PoeAoLado(arquivo);
  stage::WriteWhole(arquivo, texto);
  escritos_[arquivo] = texto;
}

void Guarda::GuardaRascunho(const Desenho& desenho) {
  stage::machine::MakePrivateFolder(Pasta());
  stage::WriteWhole(ArquivoDoRascunho(), SavDe(desenho));
}

std::optional<Desenho> Guarda::Rascunho() const {
  try {
    Lido lido = Abre(ArquivoDoRascunho()).lido;
    if (lido.faltas.empty() || !lido.desenho.blocos.empty()) return std::move(lido.desenho);
  } catch (const stage::RuntimeError&) {
    return std::nullopt;
  }
  return std::nullopt;
}

void Guarda::EsqueceRascunho() {
  std::error_code erro;
  std::filesystem::remove(ArquivoDoRascunho(), erro);
}

path Guarda::Pasta() const { return pastas_.own / "levels"; }

path Guarda::ArquivoDoRascunho() const { return Pasta() / "rascunho.sav"; }

}  // namespace desenho
