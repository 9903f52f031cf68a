// What lies over the field to show what the hand is about. The pointer goes through it.
#pragma once

#include "stage/forms/controls.h"

namespace oficina {

class Marca : public stage::Control {
 public:
  /// A line has a black one inside, so that it is seen on every block.
  enum class Forma { kCheia, kLinha };

  /// Not seen at first.
  Marca(stage::Container& container, stage::Pixel cor, Forma forma);

  void Paint(const stage::Canvas& canvas) const override;
  /// Lies there, in units of its container, and is seen.
  void PoeEm(stage::Double esquerda, stage::Double topo, stage::Double largura, stage::Double altura);

 private:
  stage::Pixel cor_;
  Forma forma_;
};

}  // namespace oficina
