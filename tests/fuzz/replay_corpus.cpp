// Runs a fuzzer over the files of a folder, for compilers without one.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/fuzz/require.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int, char** arguments) {
  int inputs = 0;
  for (const auto& entry : std::filesystem::directory_iterator(arguments[1])) {
    std::ifstream stream(entry.path(), std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    std::cerr << entry.path().filename().string() << '\n';
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    ++inputs;
  }
  return inputs > 0 ? 0 : 1;
}
