#include "records/store.h"

#include <filesystem>
#include <iostream>

#include "records/codepage.h"
#include "stage/stage.h"
#include "stage/text_file.h"

namespace korvane {
namespace {

constexpr int kLinhas = 10;
constexpr std::size_t kMaisBytes = 64 << 10;
constexpr std::size_t kMaiorCampo = 1000;
constexpr const char* kFim = "\r\n";

std::filesystem::path Arquivo(const Module1& modulo, std::string_view nome) {
  return stage::HostPath(modulo.AppPath + "\\" + std::string(nome));
}

std::string Linha(std::string_view nome, std::string_view pontos) {
  std::string bytes = '"' + ParaPagina(nome) + '"';
  return bytes.append(kFim).append(pontos).append(kFim);
}

std::string_view Campo(stage::FieldReader& campos) {
  const std::string_view campo = campos.Next();
  if (campo.size() > kMaiorCampo) throw RuntimeError("line too long");
  return campo;
}

/// Raises RuntimeError at the first damage; the rows before it are in the table then.
void LeTabela(Module1& modulo, std::string_view bytes) {
  stage::FieldReader campos(bytes);
  for (Integer r = 1; r <= kLinhas; r = r + 1) {
    const std::string nome = DaPagina(Campo(campos));
    const Double pontos = stage::NumberOf(Campo(campos));
    modulo.RecNome(r) = nome;
    modulo.RecPontos(r) = pontos;
  }
}

void Escreve(const std::filesystem::path& arquivo, std::string_view bytes) {
  try {
    stage::WriteWhole(arquivo, bytes);
  } catch (const RuntimeError&) {
    std::cerr << "korvane: cannot write " << arquivo.string() << "; the records hold for this run only\n";
  }
}

std::string TabelaPadrao() {
  std::string bytes;
  for (int r = 1; r <= kLinhas; ++r) bytes += Linha(".", "0");
  return bytes;
}

}  // namespace

void Getrecords(Module1& modulo) {
  const std::filesystem::path arquivo = Arquivo(modulo, "kv_his.dat");
  std::error_code erro;
  const bool existe = std::filesystem::exists(arquivo, erro);
  if (!existe ||
      (std::filesystem::is_regular_file(arquivo, erro) && std::filesystem::is_empty(arquivo, erro))) {
    return Escreve(arquivo, TabelaPadrao());
  }
  try {
    LeTabela(modulo, stage::ReadWhole(arquivo, kMaisBytes));
  } catch (const RuntimeError&) {
    modulo.RecDanificado = true;
  }
}

void GravaRecords(Module1& modulo) {
  const std::filesystem::path arquivo = Arquivo(modulo, "kv_his.dat");
  if (modulo.RecDanificado) {
    std::error_code erro;
    std::filesystem::rename(arquivo, Arquivo(modulo, "kv_his.old"), erro);
    modulo.RecDanificado = false;
  }
  std::string bytes;
  for (Integer r = 1; r <= kLinhas; r = r + 1)
    bytes += Linha(modulo.RecNome(r), stage::DecimalText(modulo.RecPontos(r)));
  Escreve(arquivo, bytes);
}

bool CabeNoRecord(char32_t letra) { return TemNaPagina(letra); }

}  // namespace korvane
