// Whatever a records file holds, the table made from it is written so that it reads back.
#include "records/codepage.h"
#include "records/store.h"
#include "tests/fuzz/require.h"

using namespace korvane;

namespace {

bool Reads(Module1& modulo, std::string_view text) {
  try {
    LeTabela(modulo, text);
    return true;
  } catch (const RuntimeError&) {
    return false;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kLongestName = 998;
  Module1 first;
  Reads(first, fuzz::Text(data, size));
  const std::string text = TextoDaTabela(first);
  Module1 second;
  fuzz::Require(Reads(second, text), "a table that was written is whole");
  for (Integer r = 1; r <= 10; r = r + 1) {
    const std::string name = DaPagina(ParaPagina(first.RecNome(r)).substr(0, kLongestName));
    fuzz::Require(second.RecNome(r) == name, "names come back");
    fuzz::Require(second.RecPontos(r) == first.RecPontos(r), "scores come back");
  }
  fuzz::Require(TextoDaTabela(second) == text, "a table is written the same again");
  return 0;
}
