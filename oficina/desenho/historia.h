// The drawing as it is, as it was, and as it was before something was undone.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "oficina/desenho/desenho.h"

namespace desenho {

/// Undo and redo without end. Only the present is kept whole. A step keeps the blocks that it took away or
/// replaced: a block of 20 bytes for one that was moved, 12 KB where all 598 were.
class Historia {
 public:
  explicit Historia(Desenho inicio = {}) : agora_(std::move(inicio)) {}

  const Desenho& Agora() const { return agora_; }

  /// Makes `novo` the present, as a step that Desfaz takes back. What was undone is gone then. Nothing
  /// happens if `novo` is the present already.
  ///
  /// Steps of one gesture (a drag, a key held down), which the caller numbers from 1, are one step for Desfaz
  /// if nothing came between; none at all if they lead back to where they began. 0 is no gesture.
  void Muda(Desenho novo, int gesto = 0);

  bool PodeDesfazer() const { return !feitos_.empty(); }
  bool PodeRefazer() const { return !desfeitos_.empty(); }
  /// False if there is nothing to undo or redo. Both end the gesture.
  bool Desfaz();
  bool Refaz();

 private:
  /// Turns one drawing into its neighbour: `novos` in the place of `quantos` blocks from `onde` on.
  struct Troca {
    Regra regra;
    std::size_t onde = 0;
    std::size_t quantos = 0;
    std::vector<Block> novos;
    int gesto = 0;
  };

  static Troca Entre(const Desenho& de, const Desenho& para, int gesto);
  /// Does `troca` to the present and gives the one that takes it back.
  Troca Aplica(const Troca& troca);
  bool Passa(std::vector<Troca>& de, std::vector<Troca>& para);

  Desenho agora_;
  std::vector<Troca> feitos_;
  std::vector<Troca> desfeitos_;
};

}  // namespace desenho
