// Whatever a level file or a map holds, what is read of it is a drawing that is written as it was read.
#include "oficina/desenho/desenho.h"

#include <algorithm>

#include "oficina/desenho/map.h"
#include "oficina/desenho/recorte.h"
#include "tests/fuzz/require.h"

using namespace desenho;

namespace {

void RequireWritten(const Desenho& drawing) {
  fuzz::Require(Vale(drawing), "what is read is valid");
  const Lido again = LeDesenho(SavDe(drawing));
  fuzz::Require(again.faltas.empty() && again.desenho == EmOrdem(drawing), "what is written reads back");
  const auto map = MapaDe(drawing, "name");
  fuzz::Require(!map || std::ranges::is_permutation(LeMapa(*map).desenho.blocos, drawing.blocos),
                "a map draws the same");
}

void ReadLevel(std::string_view text) {
  const Lido read = LeDesenho(text);
  RequireWritten(read.desenho);
  fuzz::Require(read.faltas.empty() || Check(text).fault || text.size() > 65536, "what is told is wrong");
  if (const auto copied = DoRecorte(text))
    fuzz::Require(*copied == read.desenho.blocos, "a copy has the blocks");
}

void ReadMap(std::string_view text) {
  try {
    RequireWritten(LeMapa(text).desenho);
  } catch (const MapError& error) {
    fuzz::Require(std::string_view(error.what()).starts_with("line "), "errors tell their line");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  ReadLevel(fuzz::Text(data, size));
  ReadMap(fuzz::Text(data, size));
  return 0;
}
