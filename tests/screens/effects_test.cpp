// What the eye is shown of play: two games go the same way, one of them on a machine that wants stillness.
// Where their pictures differ, effects are seen.
#include <gtest/gtest.h>

#include "screens/FrmHelp.h"
#include "tests/ball/flight.h"

namespace {

using namespace tests;
using stage::Pixel;
using stage::PixelRect;

/// Blocks of these types side by side, 32 x 15 pixels each, the first from pixel 199 / 180 on; no bonuses.
std::string Level(const std::vector<int>& types) {
  std::string text = "pisca,0,500,10,0\r\n";
  int left = 3000;
  for (const int type : types) {
    text += "3000," + std::to_string(left) + ",250,480," + std::to_string(type) + "\r\n";
    left += 600;
  }
  return text;
}
PixelRect Block(int number) {
  const int left = 199 + static_cast<int>(std::lround(number * 39.75));
  return {left, 180, left + 32, 195};
}
const std::string kFar = "pisca,0,500,10,0\r\n600,11000,250,480,5\r\n";

class Twins {
 public:
  explicit Twins(const std::string& first = kFar, const std::string& second = kFar)
      : lively_(Levels({first, second}), {.refresh_rate = 60}),
        still_(Levels({first, second}), {.refresh_rate = 60, .stillness = true}) {
    for (Mesa* mesa : Both()) {
      mesa->platform->Look(true);
      mesa->programa->Module1.Vkorv = 75;
      mesa->programa->Module1.Iniciado = true;
      mesa->Palco().PaintNow();
    }
  }
  game& Jogo() { return lively_.Jogo(); }
  void Do(const std::function<void(Mesa&)>& act) {
    for (Mesa* mesa : Both()) act(*mesa);
  }
  void InGame(const std::function<void(game&)>& act) {
    Do([&](Mesa& mesa) { act(mesa.Jogo()); });
  }
  void Pass(int ms) {
    for (int i = 0; i < ms; i += 5) {
      Do([](Mesa& mesa) {
        mesa.platform->Pass(std::chrono::milliseconds(5));
        mesa.Do();
        mesa.Palco().PaintNow();
      });
    }
  }
  /// The smallest rectangle with all pixels that effects change.
  PixelRect Seen() {
    PixelRect seen{1 << 20, 1 << 20, 0, 0};
    const auto [lively, still] = Pictures();
    for (int y = 0; y < lively.size.height; ++y) {
      for (int x = 0; x < lively.size.width; ++x) {
        if (lively.Row(y)[x] != still.Row(y)[x]) seen = seen.Join({x, y, x + 1, y + 1});
      }
    }
    return seen;
  }
  bool Nothing() { return Seen().Empty(); }
  /// The strongest colour of any pixel in the rectangle.
  int Brightest(const PixelRect& rect) {
    int brightest = 0;
    for (int y = rect.top; y < rect.bottom; ++y) {
      for (int x = rect.left; x < rect.right; ++x) {
        const Pixel pixel = At(x, y);
        for (const unsigned shift : {0U, 8U, 16U})
          brightest = std::max(brightest, static_cast<int>(pixel >> shift & 255U));
      }
    }
    return brightest;
  }
  Pixel At(int x, int y) { return Pictures().first.Row(y)[x]; }
  Pixel StillAt(int x, int y) { return Pictures().second.Row(y)[x]; }
  /// Of the pixels in the rectangle so many are changed.
  int Changed(const PixelRect& rect) {
    int changed = 0;
    const auto [lively, still] = Pictures();
    for (int y = rect.top; y < rect.bottom; ++y) {
      for (int x = rect.left; x < rect.right; ++x) changed += lively.Row(y)[x] != still.Row(y)[x] ? 1 : 0;
    }
    return changed;
  }

 private:
  std::array<Mesa*, 2> Both() { return {&lively_, &still_}; }
  std::pair<stage::Framebuffer, stage::Framebuffer> Pictures() {
    Do([](Mesa& mesa) { mesa.Palco().PaintNow(); });
    return {*lively_.platform->Canvas(), *still_.platform->Canvas()};
  }

  Mesa lively_;
  Mesa still_;
};

int Red(Pixel pixel) { return static_cast<int>(pixel >> 16 & 255U); }
int Green(Pixel pixel) { return static_cast<int>(pixel >> 8 & 255U); }
int Blue(Pixel pixel) { return static_cast<int>(pixel & 255U); }
int Least(Pixel pixel) { return std::min({Red(pixel), Green(pixel), Blue(pixel)}); }

/// The middle of a rectangle of display pixels, as a place of the ball's centre.
void PutBall(game& jogo, const PixelRect& rect) {
  jogo.BolaPresa = false;
  const int x = (rect.left + rect.right) / 2;
  const int y = (rect.top + rect.bottom) / 2;
  jogo.ball.Left = Single(x * 15 / 0.99375 - jogo.ball.Width / 2);
  jogo.ball.Top = Single(y * 15 / 0.9 - jogo.ball.Height / 2);
}

TEST(PlayShown, ANormalBlockStaysBrightForTwoRefreshesAndFadesInItsColour) {
  Twins twins(Level({1, 5}));
  const auto pass_refresh = [](Mesa& mesa) {
    mesa.platform->PassTo(stage::Moment(16667));
    mesa.Do();
  };
  twins.Do(pass_refresh);
  twins.InGame([](game& jogo) {
    jogo.paused = true;
    PutBall(jogo, {199, 240, 231, 255});
    jogo.hos(Lado::Down, 1);
  });
  const PixelRect block = Block(0);
  int bright = 0;
  int before = 256;
  for (int refresh = 0; refresh < 10; ++refresh) {
    const Pixel middle = twins.At(215, 187);
    if (Least(middle) > 160) ++bright;
    EXPECT_LE(Green(middle), before) << refresh;
    before = Green(middle);
    EXPECT_GE(Blue(middle), Red(middle));
    if (refresh == 3) {
      EXPECT_FALSE(block.Covers(twins.Seen())) << "sparks";
    }
    twins.Do(pass_refresh);
  }
  EXPECT_EQ(bright, 2);
  EXPECT_TRUE(twins.Nothing());
}

TEST(PlayShown, BlocksThatStayAreLitWithinTheirEdges) {
  struct Case {
    const char* what;
    std::vector<int> types;
    int hits_before;
    int last;            // ms
    std::size_t blocks;  // lit, from the first on
  };
  const Case cases[] = {{"glint", {20, 20, 5}, 0, 100, 1},
                        {"shimmer", {21, 20, 5}, 0, 150, 1},
                        {"amber", {20, 20, 5}, 99, 250, 2}};
  for (const Case& it : cases) {
    Twins twins(Level(it.types));
    twins.InGame([&](game& jogo) {
      jogo.paused = true;
      jogo.BatidasRigido = it.hits_before;
      PutBall(jogo, {199, 300, 231, 315});
      jogo.hos(Lado::Down, 1);
    });
    const PixelRect lit = Block(0).Join(Block(static_cast<int>(it.blocks) - 1));
    bool ever = false;
    for (int age = 0; age < it.last - 20; age += 20) {
      const PixelRect seen = twins.Seen();
      EXPECT_TRUE(seen.Empty() || lit.Covers(seen)) << it.what << " at " << age;
      ever = ever || !seen.Empty();
      if (it.blocks == 2 && age == 0) {
        EXPECT_EQ(seen, lit);
        const Pixel pixel = twins.At(Block(1).left + 16, 187);
        EXPECT_GT(Red(pixel), Green(pixel));
        EXPECT_GT(Green(pixel), Blue(pixel) + 40);
      }
      twins.Pass(20);
    }
    EXPECT_TRUE(ever) << it.what;
    twins.Pass(60);
    EXPECT_TRUE(twins.Nothing()) << it.what;
  }
}

TEST(PlayShown, AWallIsALineAtTheEdgeWhereTheBallTurned) {
  struct Case {
    Flight flight;
    PixelRect line;
  };
  const Case cases[] = {{{11800, 5000, 40, 1}, {795, 278, 797, 338}},
                        {{200, 5000, -40, 1}, {13, 278, 15, 338}},
                        {{6000, 200, 10, -40}, {375, 13, 435, 15}}};
  for (const Case& it : cases) {
    Twins twins;
    twins.InGame([&](game& jogo) {
      it.flight.Start(jogo);
      jogo.MoveBola();
      jogo.paused = true;
    });
    twins.Pass(20);
    const PixelRect seen = twins.Seen();
    EXPECT_NEAR(seen.left, it.line.left, 1);
    EXPECT_NEAR(seen.top, it.line.top, 1);
    EXPECT_EQ(seen.Width(), it.line.Width());
    EXPECT_EQ(seen.Height(), it.line.Height());
    const Pixel pale = twins.At(seen.left, seen.top);
    EXPECT_GT(Red(pale), 100);
    EXPECT_GT(Green(pale), Red(pale));
    EXPECT_GT(Blue(pale), Green(pale));
    twins.Pass(60);
    EXPECT_LT(Least(twins.At(seen.left, seen.top)), 100);
    twins.Pass(75);
    EXPECT_TRUE(twins.Nothing());
  }
}

TEST(PlayShown, OfALostBallGhostsFade) {
  for (const int way : {-1, 0, 1}) {
    SCOPED_TRACE(way);
    Twins twins;
    twins.InGame([way](game& jogo) {
      jogo.User.Left = 1000;
      Flight{4000, 8700, 75.0 * way, 75}.Start(jogo);
      jogo.paused = true;
    });
    twins.Pass(20);  // the ball is seen where it is
    twins.InGame([](game& jogo) {
      jogo.paused = false;
      jogo.MoveBola();
      jogo.paused = true;
    });
    const auto below = [](int slant) { return PixelRect{265 + 30 * slant, 546, 280 + 30 * slant, 560}; };
    const PixelRect paddle{67, 512, 130, 527};
    const PixelRect icon{140, 570, 240, 590};  // of the second spare life
    const PixelRect start{265, 522, 280, 537};
    EXPECT_GT(twins.Changed(start), 50);
    EXPECT_EQ(twins.Changed(below(0)) + twins.Changed(below(way)), 0);
    EXPECT_GT(twins.Changed(paddle), 300);
    EXPECT_GT(twins.Changed(icon), 300);
    EXPECT_LT(twins.Brightest(start), 210);  // of the ball itself 255
    twins.Pass(150);
    EXPECT_GT(twins.Changed(below(way)), 20);
    if (way != 0) {
      EXPECT_EQ(twins.Changed(below(-way)), 0);
    }
    twins.Pass(185);
    EXPECT_EQ(twins.Changed(below(way)) + twins.Changed(start) + twins.Changed(paddle), 0);
    EXPECT_GT(twins.Changed(icon), 300);
    twins.Pass(100);
    EXPECT_TRUE(twins.Nothing());
  }
}

TEST(PlayShown, ACaughtBonusCollapsesIntoThePaddleWhichFlashes) {
  struct Case {
    int code;
    bool collapses;
    int red_over_blue;  // of the flash; 0 for white
  };
  for (const Case& it : {Case{4, true, 0}, {5, true, 40}, {6, true, 0}, {-1, false, 0}}) {
    Twins twins;
    twins.InGame([&](game& jogo) {
      jogo.paused = true;
      jogo.Imgbonus.Picture = jogo.ImagePower(4).Picture;
      jogo.Imgbonus.Left = Single(jogo.User.Left + 200);
      jogo.Imgbonus.Top = Single(jogo.User.Top - jogo.Imgbonus.Height + 10);
      jogo.Imgbonus.Visible = true;
      jogo.BonusCaindo = it.code;
      jogo.TestaBonus();
    });
    if (!it.collapses) {
      EXPECT_TRUE(twins.Nothing());
      continue;
    }
    const PixelRect seen = twins.Seen();
    EXPECT_NEAR(seen.top, 476, 6) << it.code;
    twins.Pass(100);
    EXPECT_GT(twins.Seen().top, 485) << it.code;
    EXPECT_NEAR(twins.Seen().left, seen.left, 20) << it.code;
    const int x = static_cast<int>((twins.Jogo().User.Left + 300) * 0.99375 / 15);
    const Pixel lit = twins.At(x, 523);
    const Pixel usual = twins.StillAt(x, 523);
    EXPECT_GT(Red(lit), Red(usual));
    EXPECT_EQ(Blue(lit) > Blue(usual), it.red_over_blue == 0) << it.code;
    constexpr int kWarmth = 12;  // of the paddle itself, which white outshines
    EXPECT_GE(Red(lit) - Blue(lit) - (Red(usual) - Blue(usual)), it.red_over_blue - kWarmth) << it.code;
    twins.Pass(200);
    EXPECT_TRUE(twins.Nothing()) << it.code;
  }
}

TEST(PlayShown, ABonusWithoutWorthIsDimmedWhileItFalls) {
  Twins twins;
  const auto release = [](game& jogo) {
    jogo.BonusCaindo = 4;
    jogo.Imgbonus.Picture = jogo.ImagePower(4).Picture;
    jogo.Imgbonus.Left = 3000;
    jogo.Imgbonus.Top = 3000;
    jogo.Imgbonus.Visible = true;
    jogo.TimerDescebonus.Enabled = true;
  };
  twins.InGame(release);
  twins.Pass(100);
  EXPECT_TRUE(twins.Nothing());
  twins.InGame([](game& jogo) {
    jogo.clearall();
    jogo.loadup(1);
  });
  twins.Pass(400);
  const PixelRect seen = twins.Seen();
  ASSERT_FALSE(seen.Empty());
  EXPECT_LE(seen.Width(), 43);
  const int x = (seen.left + seen.right) / 2;
  int lively = 0;
  int still = 0;
  for (int y = seen.top; y < seen.bottom; ++y) {
    lively += Green(twins.At(x, y));
    still += Green(twins.StillAt(x, y));
  }
  EXPECT_NEAR(Double(lively) / still, 0.4, 0.05);
  twins.InGame(release);  // a new one takes its place
  twins.Pass(20);
  EXPECT_TRUE(twins.Nothing());
}

TEST(PlayShown, LivesAndParkedBonusesComeIntoSight) {
  Twins twins;
  twins.InGame([](game& jogo) {
    jogo.paused = true;
    jogo.consedebonus(8);
  });
  const PixelRect icon{256, 560, 375, 600};  // of the third spare life
  twins.Pass(20);
  EXPECT_TRUE(icon.Covers(twins.Seen()));
  EXPECT_GT(Least(twins.At(310, 580)), Least(twins.StillAt(310, 580)));
  twins.Pass(200);
  EXPECT_FALSE(twins.Nothing());
  twins.Pass(120);
  EXPECT_TRUE(twins.Nothing());

  twins.InGame([](game& jogo) {
    jogo.paused = false;
    jogo.BolaPresa = false;
    jogo.BonusExcluido = 0;
    for (const Single draw : {0.01F, 0.5F, 0.5F}) jogo.Palco.Draws.Prepared().push_back(draw);
    jogo.TimerBonusParado_Timer();
    jogo.paused = true;
  });
  ASSERT_TRUE(twins.Jogo().Box(twins.Jogo().ProximoBox).Visible);
  twins.Pass(15);
  const int early = twins.Changed({0, 0, 800, 500});
  EXPECT_GT(early, 300);
  twins.Pass(110);
  EXPECT_TRUE(twins.Nothing());
}

TEST(PlayShown, ANewLevelComesRowByRowAndCanBeHitAtOnce) {
  const std::string rows =
      "pisca,0,500,10,0\r\n1000,3000,250,480,1\r\n2000,3000,250,480,2\r\n3000,3000,250,480,3\r\n";
  Twins twins(kFar, rows);
  twins.InGame([](game& jogo) {
    jogo.clearall();
    jogo.FaseAtual = 2;
    jogo.loadup(2);
    jogo.paused = true;
  });
  const auto missing = [&](int row) {
    const int top = 60 * (row + 1);
    return twins.Changed({199, top, 231, top + 15}) != 0;
  };
  EXPECT_TRUE(missing(0) && missing(1) && missing(2));
  EXPECT_EQ(twins.At(215, 187), 0U);
  twins.Pass(100);
  EXPECT_FALSE(missing(0));
  EXPECT_TRUE(missing(1) && missing(2));
  EXPECT_EQ(twins.At(215, 187), 0U);
  twins.Pass(95);
  EXPECT_FALSE(missing(1));
  EXPECT_TRUE(missing(2));
  twins.InGame([](game& jogo) {
    PutBall(jogo, {199, 195, 231, 205});
    jogo.VelX = 0;
    jogo.VelY = -75;
    jogo.paused = false;
    jogo.MoveBola();
    jogo.paused = true;
  });
  EXPECT_FALSE(twins.Jogo().Box(3).Visible);
  twins.Pass(240);
  EXPECT_TRUE(twins.Nothing());
}

TEST(PlayShown, ABallThatIsNotLaunchedCallsForItInTheFirstGameAlone) {
  Twins twins;
  const auto called = [&](int ms) {
    bool seen_it = false;
    for (int i = 0; i < ms; i += 100) {
      twins.Pass(100);
      const PixelRect seen = twins.Seen();
      if (seen.Empty()) continue;
      seen_it = true;
      EXPECT_LT(seen.bottom, 500);
      EXPECT_GT(seen.top, 440);
      EXPECT_LT(seen.Width(), 22);
      EXPECT_LT(twins.Brightest(seen), 130);
    }
    return seen_it;
  };
  twins.InGame([](game& jogo) { jogo.BolaPresa = false; });
  twins.Pass(20);
  twins.InGame([](game& jogo) { jogo.BolaPresa = true; });
  EXPECT_FALSE(called(2900));
  EXPECT_TRUE(called(1100));
  EXPECT_TRUE(called(1000));
  twins.InGame([](game& jogo) { jogo.paused = true; });
  EXPECT_FALSE(called(5000));
  twins.InGame([](game& jogo) { jogo.paused = false; });
  EXPECT_FALSE(called(2900));
  EXPECT_TRUE(called(1000));
  twins.InGame([](game& jogo) { jogo.BolaPresa = false; });
  EXPECT_FALSE(called(100));
  twins.InGame([](game& jogo) {
    jogo.JogouUma = true;
    jogo.BolaPresa = true;
  });
  EXPECT_FALSE(called(5000));
}

TEST(PlayShown, NothingIsSeenOnceTheLevelIsGoneOrAFormLiesOverIt) {
  const std::function<void(Mesa&)> ends[] = {[](Mesa& mesa) { mesa.Jogo().clearall(); },
                                             [](Mesa& mesa) { mesa.programa->FrmHelp.Show(); }};
  for (const auto& end : ends) {
    Twins twins(Level({1, 5}));
    twins.InGame([](game& jogo) {
      jogo.paused = true;
      jogo.hos(Lado::Down, 1);
      jogo.consedebonus(8);
    });
    EXPECT_FALSE(twins.Nothing());
    twins.Do(end);
    EXPECT_TRUE(twins.Nothing());
  }
}

}  // namespace
