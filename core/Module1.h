// What all forms share, from the start of the program to its end.
#pragma once

#include <array>
#include <string>

#include "stage/scalars.h"

namespace korvane {

using stage::CInt;
using stage::CLng;
using stage::Double;
using stage::Flag;
using stage::Int;
using stage::Integer;
using stage::Long;
using stage::ResumeNext;
using stage::RuntimeError;
using stage::Single;
using stage::Val;

/// Values with indexes from 0; one outside raises RuntimeError.
template <class Value, int Count>
class Vetor {
 public:
  static constexpr int kCount = Count;

  Value& operator()(Integer i) {
    if (i < 0 || i >= Count) throw RuntimeError("index out of bounds");
    return values_[static_cast<std::size_t>(int(i))];
  }

 private:
  std::array<Value, Count> values_{};
};

// Block types with rules of their own, in TipoBox and as numbers of ImagePedra.
inline constexpr int kAmolecido = 4;  // normal, and what hard blocks turn into
inline constexpr int kRigido = 20;
inline constexpr int kInvisivel = 21;
inline constexpr int kRevelado = 22;     // what an unseen block looks like once hit
inline constexpr int kFechamento = 100;  // the carrier of the parked bonus

/// Where the ball goes back to from what it hits.
enum class Lado { Up, Down, Left, Right };

inline constexpr int kRecords = 10;  // rows of the table of records

struct Module1 {
  /// Type of each block by its index in Box: 0 gone, 20 hard, 21 unseen, 100 the carrier of the parked bonus.
  Vetor<Integer, 600> TipoBox;
  /// The program's folder as the machine names it, without a separator at its end.
  std::string AppPath;
  /// A level is tried in the workshop: neither opening, help, names of records nor their table come up.
  Flag Prova;
  /// The first launch by a click on the field has happened in this run.
  Flag Iniciado;
  /// Size of the ball's vertical step, form units.
  Integer Vkorv;
  /// 0 normal, 1 through blocks, 2 through everything.
  Integer BolaAtual;
  Long Pontos;
  /// The name typed for a new record; empty for none.
  std::string NomeRecord;
  /// The table of records, rows 1 to 10, best first.
  Vetor<std::string, 11> RecNome;
  Vetor<Double, 11> RecPontos;
  /// The row of the record just made; 0 for none.
  Integer RecNovo;
};

}  // namespace korvane
