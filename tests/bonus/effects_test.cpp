#include <gtest/gtest.h>

#include <algorithm>

#include "tests/bonus/jogada.h"

namespace tests {
namespace {

/// All that a bonus can change in play.
struct Play {
  int lives = 3;
  int ball = 0;
  std::string ball_picture = "Imageball0";
  bool magnet = false;
  int size = 2;
  Double width = 981;
  Double image_width = 981;
  Double left = 4000;
  Double offset = 150;
  int falling = 6;
  bool held = false;
  Double ball_left = 3000;
  Double ball_top = 5000;
  Double velx = 12;
  Double vely = 75;
  int points = 1000;
  int level = 1;
  std::vector<bool> icons{true, true, false, false, false};
  std::vector<bool> kinds{true, false, false};
  std::string sound;

  bool operator==(const Play&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Play& p) {
  out << "lives " << p.lives << " ball " << p.ball << ' ' << p.ball_picture << " magnet " << p.magnet
      << " size " << p.size << " width " << p.width << '/' << p.image_width << " left " << p.left
      << " offset " << p.offset << " falling " << p.falling << " held " << p.held << " ball at "
      << p.ball_left << ',' << p.ball_top << " step " << p.velx << ',' << p.vely << " points " << p.points
      << " level " << p.level << " sound " << p.sound << " icons";
  for (const bool icon : p.icons) out << ' ' << icon;
  out << " kinds";
  for (const bool kind : p.kinds) out << ' ' << kind;
  return out;
}

constexpr int kHeldStep = -300;

class Effects : public testing::Test {
 protected:
  Effects() { mesa.Quiet(); }

  void To(const Play& p) {
    jogo.Vidas = p.lives;
    jogo.Module1.BolaAtual = p.ball;
    jogo.ball.Picture = jogo.Imageball(p.ball).Picture;
    jogo.Magnetico = p.magnet;
    jogo.TamanhoUser = p.size;
    jogo.User.Width = jogo.Image1.Width = Single(p.width);
    jogo.User.Left = Single(p.left);
    jogo.DeslocaBola = Single(p.offset);
    jogo.BonusCaindo = p.falling;
    jogo.BolaPresa = p.held;
    jogo.ball.Left = Single(p.ball_left);
    jogo.ball.Top = Single(p.ball_top);
    jogo.VelX = p.velx;
    jogo.VelY = p.vely;
    jogo.Module1.Pontos = p.points;
    jogo.FaseAtual = p.level;
    jogo.ExibeVidas(jogo.Vidas);
    jogo.ExibeBolaAtual();
    mesa.platform->TakeSounds();
  }

  Play Now() {
    Play p{jogo.Vidas,
           jogo.Module1.BolaAtual,
           std::string(jogo.ball.Picture.Get()->name),
           jogo.Magnetico,
           jogo.TamanhoUser,
           jogo.User.Width,
           jogo.Image1.Width,
           jogo.User.Left,
           jogo.DeslocaBola,
           jogo.BonusCaindo,
           jogo.BolaPresa,
           jogo.ball.Left,
           jogo.ball.Top,
           jogo.VelX,
           jogo.VelY,
           int(jogo.Module1.Pontos),
           jogo.FaseAtual,
           {},
           {},
           {}};
    for (const int i : {1, 2, 3, 4, 5}) p.icons.push_back(jogo.life(i).Visible);
    for (const int i : {0, 1, 2}) p.kinds.push_back(jogo.Imageball(i).Visible);
    for (const std::string& sound : mesa.platform->TakeSounds()) p.sound += sound;
    return p;
  }

  QuietMesa mesa{{{"levels/1.sav",
                   "pisca,0,500,0,0\r\n1000,2000,250,500,3\r\n1500,2000,250,500,21\r\n"
                   "2000,2000,250,500,20\r\n2500,2000,250,500,4\r\n"},
                  {"levels/2.sav", kQuietLevel}}};
  game& jogo = mesa.Jogo();
};

/// What it was, with some of it changed.
template <class Change>
Play With(Play play, Change change) {
  change(play);
  return play;
}

Play Sized(int size, Double width, const std::string& sound = "") {
  Play play;
  play.size = size;
  play.width = play.image_width = width;
  play.sound = sound;
  return play;
}

Play Kind(int kind, const std::string& sound = "") {
  Play play;
  play.ball = kind;
  play.ball_picture = "Imageball" + std::to_string(kind);
  play.kinds = {kind == 0, kind == 1, kind == 2};
  play.sound = sound;
  return play;
}

TEST_F(Effects, EachCodeChangesItsOwnAndNothingElse) {
  const Double small = Single(981 * 0.7);
  const Play magnetic = With(Play{}, [](Play& p) { p.magnet = true; });
  const auto sounding = [](const std::string& sound) { return [sound](Play& p) { p.sound = sound; }; };
  const Play lost = With(Play{}, [&](Play& p) {
    p.lives = 2;
    p.icons = {true, false, false, false, false};
    p.falling = -1;
    p.held = true;
    p.velx = 0;
    p.vely = kHeldStep;
    p.ball_top = jogo.User.Top;
    p.ball_left = Single(Double(jogo.ball.Width) / 2 + 4000);
    p.sound = "end.wav";
  });
  const auto lives = [](int count, const std::string& sound = "") {
    return With(Play{}, [&](Play& p) {
      p.lives = count;
      for (int i = 1; i <= 5; ++i) p.icons[std::size_t(i - 1)] = i < count;
      p.sound = sound;
    });
  };
  struct {
    int code;
    Play before;
    Play after;
  } const cases[] = {
      {1, {}, Kind(1, "ball.wav")},
      {2, {}, Kind(2, "ball.wav")},
      {1, Kind(2), Kind(1, "ball.wav")},
      {2, Kind(1), Kind(2, "ball.wav")},
      {3, {}, lost},
      {3, Sized(3, 1962), lost},
      {3, Kind(2), lost},
      {3, magnetic, lost},
      {3, With(Play{}, [](Play& p) { p.held = true; }), lost},
      {4, {}, Sized(3, 1962, "mais.wav")},
      {4, Sized(1, small), Sized(2, 981, "mais.wav")},
      {4, Sized(3, 1962), Sized(3, 1962, "mais.wav")},
      {5, {}, Sized(1, small, "menos.wav")},
      {5, Sized(3, 1962), Sized(2, 981, "menos.wav")},
      {5, Sized(1, small), Sized(1, small, "menos.wav")},
      {6, {}, With(magnetic, sounding("cola.wav"))},
      {6, magnetic, With(magnetic, sounding("cola.wav"))},
      {8, {}, lives(4, "mais1.wav")},
      {8, lives(6), lives(7, "mais1.wav")},
      {-1, {}, {}},
      {0, {}, {}},
      {9, {}, {}},
      {100, {}, {}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << "code " << c.code << " on " << c.before);
    To(c.before);
    Integer code = c.code;
    jogo.consedebonus(code);
    EXPECT_EQ(Now(), c.after);
    EXPECT_EQ(code, c.code);
    EXPECT_TRUE(jogo.ball.Visible);
  }
}

TEST_F(Effects, ALostLifeEndsALevelOfHardBlocksOnly) {
  for (const int left_over : {20, 0, 3}) {
    To(Kind(2));
    jogo.clearall();
    jogo.loadup(1);
    for (const int i : {1, 2, 4}) jogo.Module1.TipoBox(i) = 0;
    jogo.Module1.TipoBox(1) = left_over;
    Integer code = 3;
    jogo.consedebonus(code);
    EXPECT_EQ(jogo.FaseAtual, left_over == 3 ? 1 : 2) << left_over;
    EXPECT_TRUE(jogo.BolaPresa);
  }
}

TEST_F(Effects, TheLastLifeEndsTheGame) {
  To(With(Sized(3, 1962), [](Play& p) {
    p.lives = 1;
    p.level = 2;
    p.points = 0;
  }));
  jogo.Serie = 2;
  std::vector<std::string> forms;
  mesa.platform->Director = [&] {
    forms.push_back(mesa.FormName());
    EXPECT_TRUE(jogo.paused);
    mesa.Press(27);
  };
  Integer code = 3;
  jogo.consedebonus(code);
  mesa.platform->Director = nullptr;
  EXPECT_EQ(forms, std::vector<std::string>{"MsgBox"});
  EXPECT_EQ(jogo.Vidas, 3);
  EXPECT_EQ(jogo.Serie, 0);
  EXPECT_EQ(jogo.FaseAtual, 1);
  EXPECT_EQ(jogo.TamanhoUser, 2);
  EXPECT_EQ(jogo.ProximoBox, 5);
  EXPECT_TRUE(jogo.BolaPresa);
  EXPECT_FALSE(jogo.ball.Visible);
  EXPECT_EQ(jogo.User.Left, 4000);
  jogo.MoveBola();
  EXPECT_TRUE(jogo.ball.Visible);
}

TEST_F(Effects, TheNextScreenPaysForWhatIsSeen) {
  To(Sized(1, 686));
  jogo.Box(1).Visible = false;
  jogo.Box(5).Visible = true;  // a parked bonus pays nothing
  Integer code = 7;
  jogo.consedebonus(code);
  EXPECT_EQ(jogo.Module1.Pontos, 1015);
  EXPECT_EQ(jogo.LabelPontos.Caption.Get(), "1015");
  EXPECT_EQ(jogo.FaseAtual, 2);
  EXPECT_EQ(jogo.Label2.Caption.Get(), "Tela: A-2");
  EXPECT_EQ(jogo.ProximoBox, 2);
  EXPECT_EQ(jogo.TamanhoUser, 1);
  EXPECT_EQ(mesa.platform->TakeSounds(), std::vector<std::string>{"mais1.wav"});
}

TEST_F(Effects, TheNextScreenBehindTheLastOneOfAll) {
  To({});
  jogo.Serie = 3;
  jogo.FaseAtual = 2;
  std::vector<std::string> forms;
  mesa.platform->Director = [&] {
    forms.push_back(mesa.FormName());
    mesa.Press(27);
  };
  Integer code = 7;
  jogo.consedebonus(code);
  EXPECT_EQ(forms, std::vector<std::string>{"MsgBox"});
  EXPECT_EQ(jogo.Serie, 3);
  EXPECT_EQ(jogo.FaseAtual, 3);
  EXPECT_EQ(jogo.Vidas, 3);
  EXPECT_EQ(jogo.Module1.Pontos, 1020);
  EXPECT_EQ(jogo.ProximoBox, 1);
  EXPECT_FALSE(jogo.Box.Exists(1));
  EXPECT_TRUE(jogo.BolaPresa);
}

TEST_F(Effects, APaddleGrownAtTheRightWallComesBackWithTheNextMove) {
  constexpr int kFarRight = 11900;
  jogo.Form_MouseMove(0, 0, kFarRight, 0);
  EXPECT_EQ(jogo.User.Left, 12000 - 981);
  Integer code = 4;
  jogo.consedebonus(code);
  EXPECT_EQ(jogo.User.Left, 12000 - 981);
  EXPECT_EQ(jogo.User.Width, 1962);
  jogo.Form_MouseMove(0, 0, kFarRight, 0);
  EXPECT_EQ(jogo.User.Left, 12000 - 1962);
}

}  // namespace
}  // namespace tests
