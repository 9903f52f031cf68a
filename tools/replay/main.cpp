// korvane-replay [SCRIPT]: plays a script, from stdin without a name.
#include <fstream>
#include <iostream>

#include "stage/files/path_text.h"
#include "stage/machines/machine.h"
#include "tools/replay/replay.h"

int main(int count, char** arguments) {
  constexpr int kProgramFailed = 1;
  constexpr int kBadScript = 2;
  std::ifstream file;
  if (count > 1) {
    file.open(stage::PathOf(arguments[1]));
    if (!file) {
      std::cerr << "korvane-replay: cannot read " << arguments[1] << '\n';
      return kBadScript;
    }
  }
  stage::machine::WriteOutputAsIs();
  try {
    replay::Replay(count > 1 ? file : std::cin, std::cout, stage::machine::OwnFolder()).Run();
    return 0;
  } catch (const replay::ScriptError& error) {
    std::cerr << error.what() << '\n';
    return kBadScript;
  } catch (const std::exception& error) {
    std::cerr << "korvane: " << error.what() << '\n';
    return kProgramFailed;
  }
}
