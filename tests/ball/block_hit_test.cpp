#include <gtest/gtest.h>

#include "tests/ball/flight.h"

namespace tests {
namespace {

constexpr int kBox = 1;
constexpr int kOther = 2;
const char* const kTwoBlocks = "3000,5000,250,480,5\n6000,11000,250,480,5\n";

/// One row of what a hit does, from the block's type and the ball's kind on.
struct Outcome {
  int type;
  int ball;
  int type_after;
  int points;
  bool stays;
  const char* picture;
  bool put_against;
  int counted;
  const char* sound;
  bool turned;
};

constexpr Outcome kOutcomes[] = {
    {20, 0, 20, 0, true, "ImagePedra20", true, 8, "hard.wav", true},
    {20, 1, 20, 0, true, "ImagePedra20", true, 8, "hard.wav", true},
    {20, 2, 1, 20, true, "ImagePedra20", true, 8, "hard.wav", false},
    {21, 0, 0, 10, true, "ImagePedra22", false, 0, "bloc2.wav", true},
    {21, 1, 1, 15, true, "ImagePedra22", false, 0, "bloc2.wav", false},
    {21, 2, 1, 15, true, "ImagePedra22", false, 0, "bloc2.wav", false},
    {5, 0, 0, 5, false, "ImagePedra5", false, 0, "bloc.wav", true},
    {5, 1, 0, 5, false, "ImagePedra5", false, 0, "bloc.wav", false},
    {5, 2, 0, 5, false, "ImagePedra5", false, 0, "bloc.wav", false},
    {22, 0, 0, 5, false, "ImagePedra22", false, 0, "bloc.wav", true},
    // What is already gone but still seen, and what a ball has already opened, hits like any other block.
    {0, 0, 0, 5, false, "ImagePedra22", false, 0, "bloc.wav", true},
    {1, 2, 0, 5, false, "ImagePedra1", false, 0, "bloc.wav", false},
};

std::string PictureOf(stage::PictureRef picture) {
  return picture == nullptr ? "" : std::string(picture->name);
}

void Furnish(game& jogo, const Outcome& row) {
  const int picture = row.type == 0 ? 22 : row.type;
  jogo.Module1.TipoBox(kBox) = row.type;
  jogo.Box(kBox).Picture = jogo.ImagePedra(picture).Picture;
  jogo.Module1.BolaAtual = row.ball;
  jogo.Module1.Pontos = 40;
  jogo.LabelPontos.Caption = "?";
  jogo.BatidasRigido = 7;
}

void ExpectOutcome(Mesa& mesa, const Outcome& row, const Flight& before) {
  game& jogo = mesa.Jogo();
  EXPECT_EQ(jogo.Module1.TipoBox(kBox), row.type_after);
  EXPECT_EQ(jogo.Module1.Pontos, 40 + row.points);
  EXPECT_EQ(jogo.LabelPontos.Caption.Get(), std::to_string(40 + row.points));
  EXPECT_EQ(bool(jogo.Box(kBox).Visible), row.stays);
  EXPECT_EQ(PictureOf(jogo.Box(kBox).Picture), row.picture);
  EXPECT_EQ(jogo.ball.Top, row.put_against ? 3250 : before.top);
  EXPECT_EQ(jogo.ball.Left, before.left);
  EXPECT_EQ(jogo.BatidasRigido, row.counted);
  EXPECT_EQ(mesa.platform->TakeSounds(), Sounds{row.sound});
  EXPECT_EQ(jogo.VelX, before.vx);
  EXPECT_EQ(jogo.VelY, row.turned ? -before.vy : before.vy);
}

TEST(BlockHit, EveryRowOfWhatAHitDoes) {
  for (const Outcome& row : kOutcomes) {
    SCOPED_TRACE(testing::Message() << "type " << row.type << " ball " << row.ball);
    Mesa mesa(Levels({kTwoBlocks}));
    Furnish(mesa.Jogo(), row);
    const Flight before{5100, 3200, 12, -70};
    before.Start(mesa.Jogo());
    mesa.Jogo().hos("down", kBox);
    ExpectOutcome(mesa, row, before);
  }
}

TEST(BlockHit, EndsALevelOfHardBlocksOnlyWhenTheBallIsTurned) {
  for (const Outcome& row : kOutcomes) {
    for (const bool hard : {false, true}) {
      SCOPED_TRACE(testing::Message() << "type " << row.type << " ball " << row.ball << " hard " << hard);
      Mesa mesa(Levels({kTwoBlocks, kQuietLevel}));
      game& jogo = mesa.Jogo();
      Furnish(jogo, row);
      jogo.TemRigido = hard;
      jogo.Module1.TipoBox(kOther) = 20;
      Flight{5100, 3200, 12, -70}.Start(jogo);
      jogo.hos("down", kBox);
      EXPECT_EQ(jogo.FaseAtual, hard && row.turned ? 2 : 1);
    }
  }
}

TEST(BlockHit, TheWordTellsWhichStepTurnsAndWhereAHardBlockPutsTheBall) {
  const struct {
    const char* word;
    Flight after;
  } cases[] = {{"up", {5100, 2750, 12, 70}},
               {"down", {5100, 3250, 12, 70}},
               {"left", {4773.585, 3200, -12, -70}},
               {"right", {5480, 3200, -12, -70}}};
  for (const auto& [word, after] : cases) {
    Mesa mesa(Levels({kTwoBlocks}));
    game& jogo = mesa.Jogo();
    jogo.Module1.TipoBox(kBox) = 20;
    Flight{5100, 3200, 12, -70}.Start(jogo);
    jogo.hos(word, kBox);
    EXPECT_NEAR(jogo.ball.Left, after.left, 0.001) << word;
    EXPECT_NEAR(jogo.ball.Top, after.top, 0.001) << word;
    EXPECT_EQ(jogo.VelX, after.vx) << word;
    EXPECT_EQ(jogo.VelY, after.vy) << word;
  }
}

TEST(BlockHit, TheHundredthHardHitInARowTurnsAllHardBlocks) {
  const std::string level =
      "1000,5000,250,480,20\n2000,5000,250,480,20\n3000,5000,250,480,5\n4000,5000,250,480,21\n";
  for (const int ball : {0, 1, 2}) {
    SCOPED_TRACE(ball);
    Mesa mesa(Levels({level}));
    game& jogo = mesa.Jogo();
    jogo.Module1.BolaAtual = ball;
    jogo.BatidasRigido = 98;
    const auto hit = [&] {
      jogo.Module1.TipoBox(1) = 20;
      Flight{5100, 1200, 0, -70}.Start(jogo);
      jogo.hos("down", 1);
    };
    hit();
    EXPECT_EQ(jogo.BatidasRigido, 99);
    EXPECT_EQ(jogo.Module1.TipoBox(2), 20);
    hit();
    EXPECT_EQ(jogo.BatidasRigido, 0);
    EXPECT_EQ(jogo.Module1.TipoBox(1), ball == 2 ? 1 : 4);
    EXPECT_EQ(PictureOf(jogo.Box(1).Picture), ball == 2 ? "ImagePedra20" : "ImagePedra4");
    EXPECT_EQ(jogo.Module1.TipoBox(2), 4);
    EXPECT_EQ(PictureOf(jogo.Box(2).Picture), "ImagePedra4");
    EXPECT_EQ(jogo.Module1.TipoBox(3), 5);
    EXPECT_EQ(jogo.Module1.TipoBox(4), 21);
    EXPECT_EQ(jogo.Module1.TipoBox(5), 100);
    EXPECT_TRUE(jogo.TemRigido);
    EXPECT_EQ(mesa.platform->TakeSounds(), (Sounds{"hard.wav", "hard.wav"}));
  }
}

TEST(BlockHit, EveryBallIsTurnedByTheParkedBonusWhichIsWorthItselfOnly) {
  for (const int ball : {0, 1, 2}) {
    SCOPED_TRACE(ball);
    Mesa mesa(Levels({"3000,5000,250,480,20\n", kQuietLevel}));
    game& jogo = mesa.Jogo();
    jogo.Module1.BolaAtual = ball;
    jogo.Module1.Pontos = 40;
    jogo.BonusParado = 8;
    jogo.Box(2).Visible = true;
    Flight{5100, 3200, 12, -70}.Start(jogo);
    jogo.hos("left", 2);
    EXPECT_EQ(jogo.VelX, -12);
    EXPECT_EQ(jogo.VelY, -70);
    EXPECT_FALSE(jogo.Box(2).Visible);
    EXPECT_EQ(jogo.Module1.TipoBox(2), 0);
    EXPECT_EQ(jogo.Module1.Pontos, 40);
    EXPECT_EQ(jogo.Vidas, 4);
    EXPECT_EQ(mesa.platform->TakeSounds(), Sounds{"mais1.wav"});
    EXPECT_EQ(jogo.FaseAtual, 1) << "no end of the level by this road";
  }
}

TEST(BlockHit, ALevelThatAHitBringsIsLeftAlone) {
  Mesa mesa(Levels({"3000,5000,250,480,5\n3000,9000,250,480,20\n", "600,3000,250,480,20\n"}));
  game& jogo = mesa.Jogo();
  Flight{5100, 3200, 12, -70}.Start(jogo);
  EXPECT_EQ(Tick(mesa), Sounds{"bloc.wav"});
  EXPECT_EQ(jogo.FaseAtual, 2);
  EXPECT_EQ(jogo.Module1.TipoBox(1), 20);
  EXPECT_TRUE(jogo.BolaPresa);
  // The tick goes on behind the hit: the ball stands on the paddle's top, is not lost, and moves one step.
  EXPECT_EQ(jogo.Vidas, 3);
  EXPECT_EQ(jogo.ball.Top, Single(jogo.User.Top - 300));
}

}  // namespace
}  // namespace tests
