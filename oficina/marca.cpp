#include "oficina/marca.h"

namespace oficina {

using stage::Double;
using stage::Single;

Marca::Marca(stage::Container& container, stage::Pixel cor, Forma forma)
    : Control(container, {}), cor_(cor), forma_(forma) {
  Visible = false;
  Enabled = false;
}

void Marca::Paint(const stage::Canvas& canvas) const {
  if (forma_ == Forma::kCheia) return canvas.Fill(Area(), cor_);
  const stage::TwipRect area = Area();
  constexpr Double kLinha = stage::kTwipsPerPixel;
  canvas.Frame({area.left + kLinha, area.top + kLinha, area.width - 2 * kLinha, area.height - 2 * kLinha}, 0);
  canvas.Frame(area, cor_);
}

void Marca::PoeEm(Double esquerda, Double topo, Double largura, Double altura) {
  Left = Single(esquerda);
  Top = Single(topo);
  Width = Single(largura);
  Height = Single(altura);
  Visible = true;
}

}  // namespace oficina
