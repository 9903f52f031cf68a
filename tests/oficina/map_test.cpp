// The maps that levels are drawn in.
#include "oficina/desenho/map.h"

#include <gtest/gtest.h>

#include "tests/oficina/fases.h"

namespace {

using desenho::Desenho;
using tests::Tijolo;

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
  const std::string kAtEdges = "name: Test\ncolumns: 3\ncell: 490 260\norigin: ";
  const std::pair<std::string, const char*> cases[] = {
      {"", "line 1: the line 'map:' is missing"},
      {"name: x\n", "line 1: the line 'map:' is missing"},
      {"map:\na\n", "line 1: the level has no name"},
      {"name: \n" + kHead, "line 1: the name must have 1 to 60 bytes"},
      {"name: " + std::string(61, 'a') + "\nmap:\na\n", "line 1: the name must have 1 to 60 bytes"},
      {"name: x\nname: y\n" + kHead, "line 2: 'name' was given before"},
      {"colour: red\n" + kHead, "line 1: unknown header 'colour'"},
      {"barred 9\n" + kHead, "line 1: a header line reads 'key: value'"},
      {"barred: 9\n" + kHead, "line 1: there is no bonus 9"},
      {"blink: ab 800\n" + kHead, "line 1: one character tells which blocks blink"},
      {"cell: 490\n" + kHead, "line 1: two values are needed here, a blank between them"},
      {"cell: 100 260\n" + kHead, "line 1: '100' is not a whole number from 120 to 3000"},
      {kHead + "..\nz\n", "line 4: no block is drawn as 'z'"},
      {kHead + "a~\n", "line 3: no block is drawn as '~'"},
      {kHead + ".-\n", "line 3: '-' has no block on its left"},
      {kHead + "a\n.|\n", "line 4: '|' has no block of its own width above"},
      {kHead + "##\n", "line 3: the level needs a block that a plain ball can remove"},
      {kHead + std::string(24, 'a') + "\n", "line 3: the row is wider than 23 columns"},
      {kAtEdges + "254 760\nmap:\na\n", "line 6: a block leaves the field"},
      {kAtEdges + "10276 760\nmap:\n..a\n", "line 6: a block leaves the field"},
      {kAtEdges + "370 494\nmap:\na\n", "line 6: a block leaves the field"},
      {kAtEdges + "370 6046\nmap:\na\n", "line 6: a block leaves the field"}};
  for (const auto& [map, why] : cases) {
    try {
      desenho::SavFromMap(map);
      ADD_FAILURE() << map;
    } catch (const desenho::MapError& error) {
      EXPECT_STREQ(error.what(), why) << map;
    }
  }
  EXPECT_EQ(desenho::LeMapa(kAtEdges + "255 6045\nmap:\na" + std::string(40, '.')).desenho.blocos,
            std::vector{Tijolo(260, 6050)});
  EXPECT_EQ(desenho::LeMapa(kAtEdges + "10275 495\n barred :  8 \nmap:\n..a . \n").desenho.blocos,
            std::vector{Tijolo(11260, 500)});
}

TEST(Map, IsDrawnInBricksWhereItCanBe) {
  EXPECT_EQ(
      desenho::MapaDe({{4, 1200, 7}, {{765, 370, 510, 970, 4}, Tijolo(1840, 1025), Tijolo(615, 1285)}},
                      "Test"),
      "name: Test\nbarred: 7\nblink: d 1200\ncell: 490 260\ngap: 10\ncolumns: 23\norigin: 365 760\nmap:\n"
      "d-\n|-.a\n>a\n");
  EXPECT_EQ(desenho::MapaDe({{}, {Tijolo(860, 765), Tijolo(370, 1025)}}, "Test"),
            "name: Test\ncell: 490 260\ngap: 10\ncolumns: 23\norigin: 365 760\nmap:\n.a\na\n");
}

TEST(Map, OfEachLevelMakesItAgain) {
  for (int number = 1; number <= tests::kFases; ++number) {
    const Desenho level = desenho::LeDesenho(tests::Fase(number)).desenho;
    const auto map = desenho::MapaDe(level, "Any name");
    ASSERT_TRUE(map) << number;
    EXPECT_EQ(desenho::SavFromMap(*map), tests::Fase(number));
    EXPECT_EQ(desenho::LeMapa(*map).nome, "Any name");
  }
}

TEST(Map, IsFoundForWhateverAMapDraws) {
  const std::string texts[] = {"map:\na--\n|--\n.v#",
                               "map:\n>a\nb",
                               "gap: 60\nmap:\n>a.?-\n>|..\n>|.b\n...c",
                               "gap: 7\ncell: 123 457\nbarred: 10\nmap:\na\n>b",
                               "gap: 0\ncell: 365 275\nmap:\n\n>..a\n\n....b--c",
                               "cell: 1200 300\norigin: 0 500\nmap:\n>a.b\n.c"};
  for (const std::string& text : texts) {
    SCOPED_TRACE(text);
    const Desenho drawn = desenho::LeMapa("name: Test\n" + text).desenho;
    const auto again = desenho::MapaDe(drawn, "Test");
    ASSERT_TRUE(again);
    EXPECT_EQ(desenho::SavFromMap(*again), SavDe(drawn)) << *again;
  }
}

TEST(Map, IsNoneWhereNoGridHoldsTheBlocks) {
  struct Case {
    Desenho desenho;
    std::string name = "Test";
  };
  const Case cases[] = {
      {{}},
      {{{}, {{760, 370, 250, 480, desenho::kHard}}}},
      {{{}, {Tijolo(370, 765), Tijolo(600, 765)}}},
      {{{}, {Tijolo(370, 765), Tijolo(370, 765)}}},
      {{{}, {Tijolo(370, 765), {1025, 370, 251, 480, 1}}}},
      {{{}, {Tijolo(259, 765)}}},
      {{{}, {Tijolo(370, 6051)}}},
      {{{1, 60001, 0}, {Tijolo(370, 765)}}},
      {{{}, {Tijolo(370, 765)}}, ""},
      {{{}, {Tijolo(370, 765)}}, " Test"},
      {{{}, {Tijolo(370, 765)}}, "Test\nbarred: 4"},
  };
  for (const Case& test : cases)
    EXPECT_EQ(desenho::MapaDe(test.desenho, test.name), std::nullopt) << SavDe(test.desenho) << test.name;
  EXPECT_TRUE(desenho::MapaDe({{0, 60001, 0}, {Tijolo(370, 6050)}}, std::string(60, 'a')));
}

}  // namespace
