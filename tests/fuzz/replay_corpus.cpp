// Runs a fuzzer over the files of a folder and over inputs made from them, for compilers without one.
#include <algorithm>
#include <filesystem>

#include "stage/files/path_text.h"
#include "tests/fuzz/require.h"
#include "tools/files.h"
#include "tools/ordeal/mutator.h"

namespace fs = std::filesystem;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

constexpr int kMade = 3000;

void Run(const std::string& input) {
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

std::vector<std::string> RunKept(const fs::path& folder) {
  std::vector<fs::path> files{fs::directory_iterator(folder), {}};
  std::ranges::sort(files);
  std::vector<std::string> kept;
  for (const fs::path& file : files) {
    kept.push_back(tools::ReadFile(file));
    std::cerr << stage::TextOf(file.filename()) << '\n';
    Run(kept.back());
  }
  return kept;
}

}  // namespace

/// The input at work is kept in LAST, so that one that fails can join the others.
int main(int count, char** arguments) {
  if (count != 3) {
    std::cerr << "usage: " << arguments[0] << " FOLDER LAST\n";
    return 2;
  }
  const std::vector<std::string> kept = RunKept(arguments[1]);
  if (kept.empty()) return 1;
  tools::Mutator mutator(kept);
  std::cerr << "made inputs, the last one in " << arguments[2] << '\n';
  for (int made = 0; made < kMade; ++made) {
    const std::string input = mutator.Next();
    std::ofstream(arguments[2], std::ios::binary) << input;
    Run(input);
  }
  return 0;
}
