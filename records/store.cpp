#include "records/store.h"

#include <algorithm>
#include <filesystem>
#include <iostream>

#include "records/codepage.h"
#include "stage/files/path_text.h"
#include "stage/files/text_file.h"

namespace korvane {
namespace {

constexpr std::size_t kMaisBytes = 64 << 10;  // more than the rows of any table need
constexpr std::size_t kMaisGuardados = 64 << 20;
constexpr std::size_t kMaiorLinha = 1000;
constexpr const char* kFim = "\r\n";

std::filesystem::path Arquivo(const Module1& modulo, std::string_view nome) {
  return stage::HostPath(modulo.AppPath, nome);
}

std::string Linha(std::string_view nome, std::string_view pontos) {
  constexpr std::size_t kAspas = 2;
  std::string bytes = '"' + ParaPagina(nome).substr(0, kMaiorLinha - kAspas) + '"';
  return bytes.append(kFim).append(pontos).append(kFim);
}

std::string TabelaPadrao() {
  std::string bytes;
  for (int r = 1; r <= kRecords; ++r) bytes += Linha(".", "0");
  return bytes;
}

/// The text before its first line that is too long to be one of a table.
std::string_view AteLinhaLonga(std::string_view bytes) {
  for (std::size_t inicio = 0; inicio < bytes.size();) {
    const std::size_t fim = std::min(bytes.find_first_of(kFim, inicio), bytes.size());
    if (fim - inicio > kMaiorLinha) return bytes.substr(0, inicio);
    inicio = fim + 1;
  }
  return bytes;
}

std::string_view Campo(stage::FieldReader& campos) {
  const std::string_view campo = campos.Next();
  if (campo.size() > kMaiorLinha) throw RuntimeError("field too long");
  return campo;
}

bool TemLinha(Module1& modulo, const std::string& nome, Double pontos) {
  for (Integer r = 1; r <= kRecords; r = r + 1) {
    if (modulo.RecNome(r) == nome && modulo.RecPontos(r) == pontos) return true;
  }
  return false;
}

/// Whether somebody may miss what the file holds and the table that comes in its place does not: the file is
/// damaged, or another copy of the game has stored a record in it.
bool FazFalta(std::string_view arquivo, std::string_view tabela) {
  Module1 velho;
  Module1 novo;
  LeTabela(novo, tabela);
  try {
    LeTabela(velho, arquivo);
  } catch (const RuntimeError&) {
    return true;
  }
  for (Integer r = 1; r <= kRecords; r = r + 1) {
    const bool caiu = velho.RecPontos(r) <= novo.RecPontos(kRecords);
    if (!caiu && !TemLinha(novo, velho.RecNome(r), velho.RecPontos(r))) return true;
  }
  return false;
}

/// False, with a line on stderr, if it cannot be done.
bool Grava(const std::filesystem::path& arquivo, std::string_view bytes) {
  try {
    stage::WriteWhole(arquivo, bytes);
    return true;
  } catch (const RuntimeError&) {
    std::cerr << "korvane: cannot write " << stage::TextOf(arquivo)
              << "; the records hold for this run only\n";
    return false;
  }
}

/// What the file holds, if somebody may miss it once the table has taken its place.
std::string OQueFazFalta(const std::filesystem::path& arquivo, std::string_view tabela) {
  std::error_code erro;
  if (!std::filesystem::is_regular_file(arquivo, erro)) return {};
  const std::string inicio = stage::ReadStart(arquivo, kMaisBytes);
  if (inicio.empty() || !FazFalta(inicio, tabela)) return {};
  return stage::ReadWhole(arquivo, kMaisGuardados);
}

}  // namespace

void LeTabela(Module1& modulo, std::string_view bytes) {
  stage::FieldReader campos(AteLinhaLonga(bytes));
  for (Integer r = 1; r <= kRecords; r = r + 1) {
    modulo.RecNome(r) = DaPagina(Campo(campos));
    modulo.RecPontos(r) = stage::NumberOf(Campo(campos));
  }
}

std::string TextoDaTabela(Module1& modulo) {
  std::string bytes;
  for (Integer r = 1; r <= kRecords; r = r + 1)
    bytes += Linha(modulo.RecNome(r), stage::DecimalText(modulo.RecPontos(r)));
  return bytes;
}

void Getrecords(Module1& modulo) {
  const std::filesystem::path arquivo = Arquivo(modulo, "kv_his.dat");
  std::error_code erro;
  const bool existe = std::filesystem::exists(arquivo, erro);
  const bool vazio =
      std::filesystem::is_regular_file(arquivo, erro) && std::filesystem::is_empty(arquivo, erro);
  try {
    if (existe && !vazio) return LeTabela(modulo, stage::ReadStart(arquivo, kMaisBytes));
  } catch (const RuntimeError&) {
    return;
  }
  Grava(arquivo, TabelaPadrao());
}

void GravaRecords(Module1& modulo) {
  const std::filesystem::path arquivo = Arquivo(modulo, "kv_his.dat");
  const std::string tabela = TextoDaTabela(modulo);
  std::string falta;
  try {
    falta = OQueFazFalta(arquivo, tabela);
  } catch (const RuntimeError&) {
    std::cerr << "korvane: cannot read " << stage::TextOf(arquivo)
              << "; the records hold for this run only\n";
    return;
  }
  if (falta.empty() || Grava(Arquivo(modulo, "kv_his.old"), falta)) Grava(arquivo, tabela);
}

}  // namespace korvane
