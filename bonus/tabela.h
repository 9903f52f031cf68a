// All bonuses: what the draws, play, the help screen, tools and tests have to know of each stands here once.
#pragma once

#include <array>

#include "core/Module1.h"

namespace korvane {

class game;

// Codes of bonuses, and what stands in their place.
inline constexpr int kNenhum = 0;
inline constexpr int kAtravessaBlocos = 1;
inline constexpr int kAtravessaTudo = 2;
inline constexpr int kTiraVida = 3;
inline constexpr int kAumenta = 4;
inline constexpr int kDiminui = 5;
inline constexpr int kCola = 6;
inline constexpr int kPassaFase = 7;
inline constexpr int kDaVida = 8;
inline constexpr int kTodosBarrados = 10;  // a level says so that has none

/// The two ways in which bonuses come. A draw is a whole number from 1 on.
enum class Sorteio { kCaindo, kParado };
constexpr int MaiorSorteado(Sorteio sorteio) { return sorteio == Sorteio::kCaindo ? 400 : 380; }

/// Drawn numbers, both ends counted.
struct Faixa {
  int de = 1;
  int ate = 0;
};
using Faixas = std::array<Faixa, 3>;

/// The row of the help screen: places and size in twips of its picture box.
struct Legenda {
  int linha = 0;  // from 1, downward
  Double topo_imagem = 0;
  Double topo_texto = 0;
  Double largura = 0;
  const char* texto = "";
};

struct Bonus {
  /// Also the number of its pictures, ImagePower and ImageBonusParado.
  int codigo = kNenhum;
  /// The numbers that draw it.
  Faixas caindo;
  Faixas parado;
  /// What it is drawn as in series B to D, kNenhum for nothing.
  int depois_da_a = kNenhum;
  /// What comes of it as play stands; it may be another, or none.
  int (*vem)(const game& jogo, Sorteio sorteio) = nullptr;
  /// What it does once caught or hit.
  void (*faz)(game& jogo) = nullptr;
  /// The player had better not catch it.
  bool ruim = false;
  Legenda legenda;

  constexpr const Faixas& Numeros(Sorteio sorteio) const {
    return sorteio == Sorteio::kCaindo ? caindo : parado;
  }
};

/// A friend of the play form, as what bonuses do is a part of play.
struct TabelaBonus {
  static constexpr int kQuantos = 8;
  /// The bonus of a code from 1 to kQuantos stands at the place below it.
  static const std::array<Bonus, kQuantos> kTodos;

  /// The code of a drawn number, kNenhum for none.
  static int Sorteado(Sorteio sorteio, int numero);
  /// Null for a code that is none.
  static const Bonus* De(Integer codigo);
};

}  // namespace korvane
