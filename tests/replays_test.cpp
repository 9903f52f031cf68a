// Plays every script under tests/replays and compares what it prints with the lines of the script that begin
// with "#=". "#level N RECORD..." gives the run a level of its own, in which "598*RECORD" stands for that
// many of the same; "#file NAME TEXT" gives it any other file.
#include <gtest/gtest.h>

#include <sstream>

#include "stage/files/path_text.h"
#include "stage/machines/machine.h"
#include "tests/mesa.h"
#include "tools/replay/replay.h"

namespace {

std::string Unescaped(std::string text) {
  for (std::size_t at = 0; (at = text.find("\\n", at)) != std::string::npos;) text.replace(at, 2, "\n");
  return text;
}

/// A record of a level, as often as it is asked for.
std::string Records(const std::string& word) {
  const std::size_t star = word.find('*');
  const int count = star == std::string::npos ? 1 : std::stoi(word);
  std::string records;
  for (int i = 0; i < count; ++i) records += word.substr(star + 1) + "\r\n";
  return records;
}

struct Script {
  std::string text;
  std::vector<std::string> expected;
};

Script ReadScript(const std::filesystem::path& file, const std::filesystem::path& folder) {
  Script script;
  bool own_folder = false;
  std::istringstream lines(tests::ReadFile(file));
  for (std::string line; std::getline(lines, line); script.text += line + '\n') {
    std::istringstream words(line);
    std::string verb;
    std::string name;
    words >> verb;
    if (verb == "#=") script.expected.push_back(line.substr(3));
    if (verb != "#level" && verb != "#file") continue;
    own_folder = true;
    words >> name;
    std::string content;
    if (verb == "#level") {
      for (std::string record; words >> record;) content += Records(record);
      name.insert(0, "levels/").append(".sav");
    } else {
      std::getline(words >> std::ws, content);
      content = Unescaped(content);
    }
    tests::WriteFile(folder / name, content);
  }
  if (own_folder) script.text = "folder " + stage::TextOf(folder) + '\n' + script.text;
  return script;
}

class Replays : public testing::TestWithParam<std::filesystem::path> {};

TEST_P(Replays, PrintsWhatItMust) {
  const stage::TempFolder folder;
  const Script script = ReadScript(GetParam(), folder.Path());
  ASSERT_FALSE(script.expected.empty());
  std::istringstream input(script.text);
  std::ostringstream output;
  replay::Replay(input, output, stage::machine::OwnFolder()).Run();
  std::vector<std::string> printed;
  std::istringstream lines(output.str());
  for (std::string line; std::getline(lines, line);) printed.push_back(line);
  ASSERT_EQ(printed.size(), script.expected.size());
  for (std::size_t i = 0; i < printed.size(); ++i)
    EXPECT_EQ(printed[i], script.expected[i]) << "answer " << i + 1;
}

std::vector<std::filesystem::path> AllScripts() {
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(KORVANE_REPLAYS))
    files.push_back(entry.path());
  std::ranges::sort(files);
  return files;
}

INSTANTIATE_TEST_SUITE_P(All, Replays, testing::ValuesIn(AllScripts()),
                         [](const auto& script) { return stage::TextOf(script.param.stem()); });

}  // namespace
