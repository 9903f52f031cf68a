#include "tools/replay/replay.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

/// What a script prints, or the message of the line that cannot be done.
std::string Play(const std::string& text) {
  std::istringstream script(text);
  std::ostringstream out;
  try {
    replay::Replay(script, out, stage::machine::OwnFolder()).Run();
  } catch (const replay::ScriptError& error) {
    return error.what();
  }
  return out.str();
}

TEST(Replay, NamesTheLineThatCannotBeDone) {
  const std::pair<const char*, const char*> cases[] = {
      {"start\nbogus", "line 2: no such line: bogus"},
      {"# words\n\nscreen 1", "line 3: wrong number of values"},
      {"state", "line 1: not before start: state"},
      {"start\nset X 1", "line 2: no such name: X"},
      {"start\nset Vidas 99999", "line 2: overflow"},
      {"start\nset Vidas x", "line 2: not a number: x"},
      {"start\nset TipoBox(600) 1", "line 2: index out of bounds"},
      {"start\nset Timer2.Interval 70000", "line 2: interval out of range"},
      {"start\nbeats -1", "line 2: not a whole number in range: -1"},
      {"refresh 501", "line 1: not a whole number in range: 501"},
      {"start\nbeat Nope", "line 2: no such timer: Nope"},
      {"start\nrnd 1", "line 2: a draw lies between 0 and 1"},
      {"start\nget Box(599)", "line 2: no such name: Box(599)"},
      {"start\npress up", "line 2: no such button: up"},
      {"start\nrelease", "line 2: nothing is pressed"},
      {"start\ndrag 1 2 3", "line 2: wrong number of values"},
      {"start\npicture /nowhere/x.png", "line 2: cannot write /nowhere/x.png"}};
  for (const auto& [script, message] : cases) EXPECT_EQ(Play(script), message) << script;
}

TEST(Replay, AnswersAfterTheProgramHasEnded) {
  EXPECT_EQ(Play("start\nclose\nget form ended\nclose\nget ended Vidas\nbeats 9\nget t"),
            "{\"form\":\"game\",\"ended\":false}\n{\"ended\":true,\"Vidas\":3}\n{\"t\":1000}\n");
}

TEST(Replay, WritesWhatItReads) {
  EXPECT_EQ(
      Play("start\nset ball.Left 226.41508\nget ball.Left\nset ball.Left 226.4150848388672\nget ball.Left\n"
           "set NomeRecord a \"b\\\nget NomeRecord\nset paused -1\nget paused\nset Box(1).Visible 0\n"
           "get Box(1).Visible\nset Timer2.Interval 3000\nget Timer2.Interval\nset Pontos 70000\nget Pontos"),
      "{\"ball.Left\":226.4150848388672}\n{\"ball.Left\":226.4150848388672}\n"
      "{\"NomeRecord\":\"a "
      "\\\"b\\\\\"}\n{\"paused\":-1}\n{\"Box(1).Visible\":0}\n{\"Timer2.Interval\":3000}\n"
      "{\"Pontos\":70000}\n");
}

TEST(Replay, PressesButtonsAsTheHandDoes) {
  // The ball is launched by the main button alone; the paddle follows whatever is pressed.
  const std::string start = "start\nkey 27\nbeats 1\nmove 3000 4000\n";
  const std::string end = "\nbeats 1\nget BolaPresa User.Left";
  const std::string held = R"({"BolaPresa":-1,"User.Left":)";
  const std::string right = Play(start + "drag 3000 4000 6000 4000 right\nwheel -3" + end);
  EXPECT_EQ(right, Play(start + "move 6000 4000" + end));
  EXPECT_TRUE(right.starts_with(held)) << right;
  EXPECT_NE(right, Play(start + end));
  const std::string left = Play(start + "press left shift\nmove 6000 4000\nrelease" + end);
  EXPECT_EQ(left, Play(start + "drag 3000 4000 6000 4000" + end));
  EXPECT_EQ(left, Play(start + "move 6000 4000\nclick" + end));
  EXPECT_FALSE(left.starts_with(held)) << left;
}

TEST(Replay, TicksOnlyTheTimersThatABeatNames) {
  EXPECT_EQ(
      Play("start\nkey 27\nset Vkorv 100\nset VelY -100\nset ball.Top 8000\nset BolaPresa 0\nset ball.Left "
           "6000\n"
           "beat Timer_Move\nget ball.Top\nbeat Timer_Move Timer_Move2\nget ball.Top\n"
           "beat timerDefine\nget ball.Top\nbeats 1\nget ball.Top t"),
      "{\"ball.Top\":7900}\n{\"ball.Top\":7700}\n{\"ball.Top\":7700}\n{\"ball.Top\":7500,\"t\":1062.5}\n");
}

TEST(Replay, ABeatNamesItsTimersUntilTheNextAlsoUnderABox) {
  // The last ball is lost within the beat; blocks would blink on the same one.
  const std::string lost =
      "start\nkey 27\nset Vidas 1\nset ball.Top 9000\nset BolaPresa 0\nset TimerPisca.Interval 1\n"
      "set TimerPisca.Enabled -1\nbeat Timer_Move\nget form EstadoPisca\n";
  EXPECT_EQ(Play(lost + "key 13\nget form EstadoPisca\nkey 13\nget form EstadoPisca"),
            "{\"form\":\"MsgBox\",\"EstadoPisca\":0}\n{\"form\":\"FrmMostraRecords\",\"EstadoPisca\":0}\n"
            "{\"form\":\"game\",\"EstadoPisca\":0}\n");
  EXPECT_EQ(Play(lost + "beats 1\nget form EstadoPisca"),
            "{\"form\":\"MsgBox\",\"EstadoPisca\":0}\n{\"form\":\"MsgBox\",\"EstadoPisca\":-1}\n");
}

}  // namespace
