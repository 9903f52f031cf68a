#include <gtest/gtest.h>

#include "tests/mesa.h"

namespace {

using namespace tests;

struct Case {
  stage::ScreenSize screen;
  const char* key;
  int value;
  int scaled;
};

constexpr Case kCases[] = {{{12000, 9000}, "width", 981, 981},
                           {{12000, 9000}, "top", 4500, 4500},
                           {{15360, 11520}, "width", 981, 1256},
                           {{15360, 11520}, "height", 981, 1256},
                           {{18000, 13500}, "top", 3, 4},
                           {{18000, 13500}, "left", 5, 8},
                           {{18000, 13500}, "left", -3, -4},
                           {{18000, 13500}, "height", 0, 0},
                           {{16000, 9000}, "left", 981, 1308},
                           {{16000, 9000}, "width", -981, -1308},
                           {{16000, 9000}, "top", 981, 981},
                           {{16000, 9000}, "height", 981, 981},
                           {{16000, 9000}, "WIDTH", 981, 1308},
                           {{16000, 9000}, "Left", 3, 4},
                           {{16000, 9000}, "", 981, 0},
                           {{16000, 9000}, "widths", 981, 0},
                           {{12000, 9000}, "top", 32767, 32767},
                           {{16000, 9000}, "left", 24575, 32767},
                           {{24000, 9000}, "left", -16384, -32768},
                           {{9000, 6750}, "left", 2, 2}};

TEST(Redimensionar, ScalesEachAxisByTheScreenToTheNearestEvenWhole) {
  for (const Case& test : kCases) {
    Mesa mesa({{"levels/1.sav", "600,3000,250,480,5\n"}}, test.screen);
    EXPECT_EQ(mesa.Jogo().Redimensionar(test.key, test.value), test.scaled) << test.key << ' ' << test.value;
  }
}

TEST(Redimensionar, RefusesWhatDoesNotFit) {
  Mesa mesa({{"levels/1.sav", "600,3000,250,480,5\n"}}, {16000, 9000});
  EXPECT_THROW(mesa.Jogo().Redimensionar("left", 24577), RuntimeError);
  EXPECT_THROW(mesa.Jogo().Redimensionar("left", -24577), RuntimeError);
  EXPECT_EQ(mesa.Jogo().Redimensionar("top", 24577), 24577);
}

TEST(Redimensionar, ABlockThatDoesNotFitEndsTheSeries) {
  Mesa mesa({{"levels/1.sav", "600,3000,250,480,5\n"}, {"levels/2.sav", "600,24577,250,480,5\n"}},
            {16000, 9000});
  game& jogo = mesa.Jogo();
  jogo.clearall();
  jogo.loadup(2);
  EXPECT_EQ(jogo.Label2.Caption.Get(), "Tela: B-1");
}

}  // namespace
