#include "oficina/desenho/registro.h"

#include <algorithm>
#include <span>

namespace desenho {
namespace {

struct Limite {
  bool passado;
  int campo;
  const char* porque;
};

std::optional<Fault> Primeiro(std::span<const Limite> limites, int record) {
  const auto passado =
      std::find_if(limites.begin(), limites.end(), [](const Limite& limite) { return limite.passado; });
  if (passado == limites.end()) return std::nullopt;
  return Fault{record, passado->campo, passado->porque};
}

void Exige(const std::optional<Fault>& falta) {
  if (falta) throw korvane::LevelError(falta->why, falta->record, falta->field);
}

}  // namespace

std::optional<Fault> FaltaDe(const Block& bloco, int record) {
  const Limite limites[] = {
      {bloco.top < Field::kTop, 1, "above the field"},
      {bloco.left < Field::kLeft, 2, "left of the field"},
      {bloco.height <= 0, 3, "the block has no height"},
      {bloco.width <= 0, 4, "the block has no width"},
      {bloco.Bottom() > Field::kBottom, 1, "too low for the paddle in series D"},
      {bloco.Right() > Field::kRight, 2, "right of the field"},
      {bloco.type < 1 || bloco.type > kLastType, 5, "no such type of block"},
  };
  return Primeiro(limites, record);
}

std::optional<Fault> FaltaDe(const Regra& regra, int record) {
  const Limite limites[] = {
      {regra.pisca < 0 || regra.pisca > kLastType, 2, "no such type of block"},
      {regra.intervalo < Regra::kMenorIntervalo, 3, "the interval is below 500"},
      {regra.intervalo > Regra::kMaiorIntervalo, 3, "the interval is above 65535"},
      {regra.barrado < 0 || (regra.barrado > kLastBonus && regra.barrado != kAllBonuses), 4, "no such bonus"},
  };
  return Primeiro(limites, record);
}

Fault FaltaDe(const korvane::LevelError& erro) { return {erro.Record, erro.Field, erro.what()}; }

void SomaRegra(const korvane::LevelRecord& registro, Regra& regra) {
  Regra nova = regra;
  if (registro.Blinks()) nova.pisca = registro.BlinkingType();
  if (registro.Blinks() || nova.pisca == 0) nova.intervalo = int(std::int64_t{registro.BlinkInterval()});
  nova.barrado = registro.BarredBonus();
  Exige(FaltaDe(nova, registro.Number()));
  regra = nova;
}

void SomaBloco(const korvane::LevelRecord& registro, std::vector<Block>& blocos) {
  const Block bloco{.top = registro.Top(),
                    .left = registro.Left(),
                    .height = registro.Height(),
                    .width = registro.Width(),
                    .type = registro.Type()};
  Exige(FaltaDe(bloco, registro.Number()));
  if (int(blocos.size()) == kMostBlocks)
    throw korvane::LevelError("more than 598 blocks", registro.Number(), 0);
  blocos.push_back(bloco);
}

}  // namespace desenho
