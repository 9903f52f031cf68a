// Whatever an address holds, it is refused or that of the drawing that comes out of it; and every drawing has
// one.
#include "oficina/desenho/endereco.h"

#include "oficina/desenho/edicao.h"
#include "tests/fuzz/require.h"

using namespace desenho;

namespace {

/// Blocks made of the bytes, nine to a block.
Desenho DrawingOf(const std::uint8_t* data, std::size_t size) {
  const auto pair = [&](std::size_t at) { return data[at] * 256 + data[at + 1]; };
  Desenho drawing;
  for (std::size_t at = 0; at + 9 <= size && int(drawing.blocos.size()) < kMostBlocks; at += 9) {
    drawing.blocos.push_back(
        NoCampo({pair(at), pair(at + 2), pair(at + 4), pair(at + 6), data[at + 8] % kLastType + 1}));
  }
  return drawing;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = fuzz::Text(data, size);
  if (const auto drawing = DoEndereco(text)) {
    fuzz::Require(Vale(*drawing), "what comes out is valid");
    fuzz::Require(EnderecoDe(*drawing) == text, "a drawing has one address");
  }
  const Desenho drawing = DrawingOf(data, size);
  const auto address = EnderecoDe(drawing);
  fuzz::Require(address && address->size() <= kMaiorEndereco, "every drawing fits");
  fuzz::Require(DoEndereco(*address) == drawing, "every drawing comes back");
  return 0;
}
