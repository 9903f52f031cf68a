// The maps that levels are drawn in.
#include "oficina/desenho/map.h"

#include <gtest/gtest.h>

namespace {

const std::string kHead = "name: Test\nmap:\n";

TEST(Map, LaysTheLowestBlockLastAndTheRuleFirst) {
  EXPECT_EQ(desenho::SavFromMap("name: Test\ncell: 1000 300\ncolumns: 4\norigin: 1000 1000\ngap: 20\n"
                                "barred: 7\nblink: c 1200\nmap:\na-.#\n|-?\n>..c\n"),
            "pisca,3,1200,7,0\n"
            "1010,4010,280,980,20\n"
            "1010,1010,580,1980,1\n"
            "1310,3010,280,980,21\n"
            "1610,3510,280,980,3\n");
}

TEST(Map, TellsTheLineThatIsWrong) {
  const std::pair<std::string, const char*> cases[] = {
      {"", "line 1: "},
      {"name: x\n", "line 1: the line 'map:' is missing"},
      {"map:\na\n", "line 1: the level has no name"},
      {"name: x\nname: y\n" + kHead, "line 2: 'name' was given before"},
      {"colour: red\n" + kHead, "line 1: unknown header"},
      {"barred: 9\n" + kHead, "line 1: there is no bonus 9"},
      {"cell: 100 260\n" + kHead, "line 1: '100' is not a whole number from 120 to 3000"},
      {kHead + "..\nz\n", "line 4: no block is drawn as 'z'"},
      {kHead + ".-\n", "line 3: '-' has no block on its left"},
      {kHead + "a\n.|\n", "line 4: '|' has no block of its own width above"},
      {kHead + "##\n", "line 3: the level needs a block"},
      {kHead + std::string(24, 'a') + "\n", "line 3: the row is wider than 23 columns"}};
  for (const auto& [map, why] : cases) {
    try {
      desenho::SavFromMap(map);
      ADD_FAILURE() << map;
    } catch (const desenho::MapError& error) {
      EXPECT_TRUE(std::string(error.what()).starts_with(why)) << error.what() << " for " << map;
    }
  }
}

}  // namespace
