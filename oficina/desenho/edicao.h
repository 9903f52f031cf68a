// What a hand does to a drawing. Every function takes a value and gives one; the drawings are valid and stay
// so, at most kMostBlocks blocks inside the Field. Places are in design units of the 12000 by 9000 screen.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "oficina/desenho/desenho.h"

namespace desenho {

struct Ponto {
  int x = 0;
  int y = 0;

  bool operator==(const Ponto&) const = default;
};

/// Indexes of chosen blocks, ascending, each once.
using Escolha = std::vector<std::size_t>;

/// A drawing in which something was added, and what that is.
struct Feito {
  Desenho desenho;
  Escolha novos;
};

/// No block is made smaller by hand, either way.
inline constexpr int kMenorLado = 60;

/// Steps of places that fit together. All grids have their lines through the same block.
struct Malha {
  Ponto passo;
};
/// Half an ordinary brick.
inline constexpr Malha kMalha{{(kLarguraNormal + kVao) / 2, (kAlturaNormal + kVao) / 2}};
/// A fifth of that.
inline constexpr Malha kMalhaFina{{kMalha.passo.x / 5, kMalha.passo.y / 5}};
inline constexpr Malha kSemMalha{{1, 1}};

/// The place of the grid that is nearest to a block's top left corner. It may lie outside the field.
Ponto NaMalha(Ponto canto, const Malha& malha);

/// The block with its size cut down to the field's, moved inside.
Block NoCampo(Block bloco);

/// The topmost block under a point; its right and bottom edges do not count.
std::optional<std::size_t> BlocoEm(const Desenho& desenho, Ponto ponto);

/// The blocks that a rubber band between two corners touches.
Escolha NoElastico(const Desenho& desenho, Ponto a, Ponto b);

/// All of them.
Escolha Tudo(const Desenho& desenho);

/// The chosen blocks, in their order.
std::vector<Block> Escolhidos(const Desenho& desenho, const Escolha& escolha);

/// Adds copies of `blocos`, all moved by `passo`, or less where that would lead one out of the field. None if
/// they would be too many.
std::optional<Feito> Poe(const Desenho& desenho, const std::vector<Block>& blocos, Ponto passo = {});

/// Adds a straight row of blocks like `modelo`, whose own place does not count, an ordinary gap between them:
/// the first with its corner at `de`, then on to the one that `ate` points at, across or down, whichever
/// takes more blocks. Places where something stands, or that lead out of the field, stay empty. None if there
/// would be too many blocks.
std::optional<Feito> Pinta(const Desenho& desenho, const Block& modelo, Ponto de, Ponto ate);

/// Moves the chosen blocks together, or less far where that would lead one out of the field.
Desenho Move(Desenho desenho, const Escolha& escolha, Ponto passo);

/// One of the eight handles of a block: -1 left or top, 1 right or bottom, 0 neither; not both 0.
struct Alca {
  int x = 0;
  int y = 0;
};

/// Moves the edges of the chosen blocks that the handle is on, all by the same step, or by less where one
/// would leave the field or become smaller than kMenorLado. What is smaller already only grows.
Desenho Estica(Desenho desenho, const Escolha& escolha, Alca alca, Ponto passo);

Desenho Apaga(const Desenho& desenho, const Escolha& escolha);

/// Adds copies of the chosen blocks, a step of the grid to the right and down, or the other way where there
/// is no room. None if they would be too many.
std::optional<Feito> Duplica(const Desenho& desenho, const Escolha& escolha, const Malha& malha = kMalha);

/// Turns left and right round, about the middle of the field or of the chosen blocks.
Desenho EspelhaNoCampo(Desenho desenho, const Escolha& escolha);
Desenho EspelhaEmSi(Desenho desenho, const Escolha& escolha);

/// Makes the chosen blocks of `tipo`, 1 to kLastType.
Desenho MudaTipo(Desenho desenho, const Escolha& escolha, int tipo);

}  // namespace desenho
