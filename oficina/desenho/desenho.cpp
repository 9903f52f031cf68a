#include "oficina/desenho/desenho.h"

#include <algorithm>

#include "oficina/desenho/registro.h"

namespace desenho {
namespace {

constexpr std::size_t kMaisBytes = 64 << 10;

std::string Linha(const Block& bloco) {
  std::string linha;
  for (const int numero : {bloco.top, bloco.left, bloco.height, bloco.width})
    linha += std::to_string(numero) + ',';
  return linha + std::to_string(bloco.type) + '\n';
}

std::string Linha(const Regra& regra) {
  return "pisca," + std::to_string(regra.pisca) + ',' + std::to_string(regra.intervalo) + ',' +
         std::to_string(regra.barrado) + ",0\n";
}

/// The index of the block that has to come last; of several that are as low, it is the last one.
std::size_t MaisBaixo(const std::vector<Block>& blocos) {
  std::size_t baixo = 0;
  for (std::size_t i = 0; i < blocos.size(); ++i) {
    if (blocos[i].Bottom() >= blocos[baixo].Bottom()) baixo = i;
  }
  return baixo;
}

void Soma(const korvane::LevelRecord& registro, Desenho& desenho) {
  if (registro.IsRule()) {
    SomaRegra(registro, desenho.regra);
  } else {
    SomaBloco(registro, desenho.blocos);
  }
}

}  // namespace

bool Vale(const Desenho& desenho) {
  return desenho.blocos.size() <= std::size_t(kMostBlocks) && !FaltaDe(desenho.regra) &&
         std::none_of(desenho.blocos.begin(), desenho.blocos.end(),
                      [](const Block& bloco) { return FaltaDe(bloco).has_value(); });
}

Lido LeDesenho(std::string_view sav) {
  Lido lido;
  if (sav.size() > kMaisBytes) {
    lido.faltas.push_back({0, 0, "the file is longer than 65536 bytes"});
    sav = sav.substr(0, sav.find_last_of(",\r\n", kMaisBytes - 1) + 1);
  }
  korvane::LevelReader leitor(sav);
  while (!leitor.AtEnd()) {
    try {
      Soma(leitor.Next(), lido.desenho);
    } catch (const korvane::LevelError& erro) {
      lido.faltas.push_back(FaltaDe(erro));
    }
  }
  return lido;
}

Desenho EmOrdem(Desenho desenho) {
  if (desenho.blocos.empty()) return desenho;
  const auto baixo = desenho.blocos.begin() + std::ptrdiff_t(MaisBaixo(desenho.blocos));
  std::rotate(baixo, baixo + 1, desenho.blocos.end());
  return desenho;
}

std::string Registros(const std::vector<Block>& blocos) {
  std::string texto;
  for (const Block& bloco : blocos) texto += Linha(bloco);
  return texto;
}

std::string SavDe(const Desenho& desenho) {
  return Linha(desenho.regra) + Registros(EmOrdem(desenho).blocos);
}

Verdict Confere(const Desenho& desenho) { return Check(SavDe(desenho)); }

std::optional<std::size_t> BlocoDoRegistro(const Desenho& desenho, int record) {
  const std::size_t quantos = desenho.blocos.size();
  if (record < 2 || std::size_t(record) > quantos + 1) return std::nullopt;
  const std::size_t lugar = std::size_t(record) - 2;
  const std::size_t baixo = MaisBaixo(desenho.blocos);
  if (lugar + 1 == quantos) return baixo;
  return lugar < baixo ? lugar : lugar + 1;
}

}  // namespace desenho
