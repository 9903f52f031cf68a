// A level as it is drawn: a value, read from the text of a level and written as one.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "oficina/desenho/block.h"
#include "oficina/desenho/check.h"

namespace desenho {

/// What a level says of all its blocks.
struct Regra {
  static constexpr int kMenorIntervalo = 500;
  static constexpr int kMaiorIntervalo = 65535;

  /// The type that blinks, 0 for none.
  int pisca = 0;
  /// Its period in ms.
  int intervalo = kMenorIntervalo;
  /// The bonus that never falls: 1 to 8, kAllBonuses for all, 0 for none.
  int barrado = 0;

  bool operator==(const Regra&) const = default;
};

/// Earlier blocks lie on top of later ones. What all functions of this folder make of a drawing that is valid
/// (Vale) is valid.
struct Desenho {
  Regra regra;
  std::vector<Block> blocos;

  bool operator==(const Desenho&) const = default;
};

/// All numbers are within what a level may hold, every block lies in the Field, and there are at most
/// kMostBlocks. Such a drawing may still be no good to play: Confere tells.
bool Vale(const Desenho& desenho);

struct Lido {
  /// What could be read; always valid.
  Desenho desenho;
  /// Why a record is not in the drawing, in the order of the text; of a record only its first fault. Field
  /// and record are 0 where the whole text is meant.
  std::vector<Fault> faltas;
};

/// Reads the text of a level as far as it can be read. A record that a level must not hold is left out and
/// told; so is what stands behind kMostBlocks blocks or 64 KiB. Of several rules that count which the game
/// would keep.
Lido LeDesenho(std::string_view sav);

/// The drawing in the order that play wants: the lowest block last, all others in the order they have.
Desenho EmOrdem(Desenho desenho);

/// The drawing as the text of a .sav file: the rule, then a record for each block of EmOrdem, each line
/// ended.
std::string SavDe(const Desenho& desenho);

/// The records of some blocks, in their order, each line ended.
std::string Registros(const std::vector<Block>& blocos);

/// What Check says of SavDe.
Verdict Confere(const Desenho& desenho);

/// The index in `desenho.blocos` of what a Fault of Confere calls `record`; none for the rule and for the
/// whole.
std::optional<std::size_t> BlocoDoRegistro(const Desenho& desenho, int record);

}  // namespace desenho
