// The real program on an X server, played with the real pointer and keys and watched from outside.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <csignal>

#include "tests/window/window.h"

namespace tests {
namespace {

TEST_F(Window, PaddleAndBallGoWhereTheHandSends) {
  Process game = Start();
  CloseHelp();
  for (const int x : {200, 555, 300}) {
    desktop_.Hand("mousemove " + std::to_string(x) + " 300");
    EXPECT_TRUE(Eventually([&] { return std::abs(Paddle() - x) <= 2 && std::abs(Ball().x - (x + 32)) <= 2; }))
        << "pointer at " << x;
  }
  EXPECT_NEAR(Ball().y, kPaddleLine - 8, 2);
  desktop_.Hand("click 1");
  EXPECT_TRUE(Eventually([&] {
    const auto ball = Ball();
    return ball.count > 0 && ball.y < kPaddleLine - 100;
  }));
  Leave(game);
  EXPECT_EQ(Content("errors"), "");
}

TEST_F(Window, WhatIsPressedDuringTheOpeningIsForgotten) {
  Process game = Start();
  ASSERT_TRUE(Eventually([&] { return SomethingIsUp(); }));
  game.Signal(SIGSTOP);
  ASSERT_FALSE(HelpIsUp());
  desktop_.Hand("key Return key space click 1");
  game.Signal(SIGCONT);
  CloseHelp();
  EXPECT_TRUE(Eventually([&] { return std::abs(Ball().y - (kPaddleLine - 8)) <= 2; }));
  Leave(game);
}

TEST_F(Window, SignalsEndTheGameInOrder) {
  for (const int signal : {SIGTERM, SIGINT}) {
    Process game = Start();
    ASSERT_TRUE(Eventually([&] { return SomethingIsUp(); }));
    game.Signal(signal);
    EXPECT_EQ(game.WaitForEnd(), 0);
  }
}

TEST_F(Window, ASessionThatEndsOverTheScoreEndsTheGame) {
  LayLevel("");
  Process game = Start();
  CloseHelp();
  LoseGame([&] { return BoxIsUp(); });
  game.Signal(SIGTERM);
  EXPECT_EQ(game.WaitForEnd(), 0);
}

TEST_F(AnyWindow, WithoutADisplayOrColoursOneLineSaysWhy) {
  const Desktop colourless(800, 600, 16);
  for (const std::vector<std::string>& environment :
       {std::vector<std::string>{"DISPLAY="}, colourless.Environment()}) {
    std::vector<std::string> all = environment;
    all.emplace_back("WAYLAND_DISPLAY=");
    Process game({Program()}, all, folder_.Path() / "errors");
    EXPECT_EQ(game.WaitForEnd(), 1);
    EXPECT_EQ(LinesSaid(), 1);
    EXPECT_GT(Content("errors").size(), std::string("korvane: \n").size()) << Content("errors");
  }
}

/// A sound server that takes calls and never answers.
class MuteServer {
 public:
  explicit MuteServer(const std::string& address) {
    sockaddr_un place{};
    place.sun_family = AF_UNIX;
    address.copy(place.sun_path, sizeof place.sun_path - 1);
    EXPECT_EQ(bind(socket_, reinterpret_cast<const sockaddr*>(&place), sizeof place), 0);
    EXPECT_EQ(listen(socket_, 5), 0);
  }
  ~MuteServer() { close(socket_); }
  MuteServer(const MuteServer&) = delete;
  MuteServer& operator=(const MuteServer&) = delete;

 private:
  int socket_ = socket(AF_UNIX, SOCK_STREAM, 0);
};

TEST_F(Window, ASoundServerThatHangsHidesNoLine) {
  const std::string address = (folder_.Path() / "sound").string();
  const MuteServer mute(address);
  // Nothing can be written under the name that the records are written under first.
  std::filesystem::create_directory(folder_.Path() / ("kv_his.dat." + std::to_string(getuid()) + ".tmp"));
  Process game = Start({"SDL_AUDIODRIVER=pulseaudio", "PULSE_SERVER=unix:" + address});
  CloseHelp();
  EXPECT_EQ(LinesSaid(), 1) << Content("errors");
  Leave(game);
}

TEST_F(Window, ARecordIsMadeAndKept) {
  desktop_.TakeLayout("fr");  // which has the accent on a key of its own
  {
    Process game = Start();
    CloseHelp();
    desktop_.Hand("mousemove 400 300 click 1");
    EXPECT_TRUE(Eventually([&] { return Content("config.ini").starts_with("[SETUP]\r\nVkorv="); }));
    LoseLife(2);
    // A lost ball centres the paddle; help leaves it there, wherever the pointer is.
    const int paddle = Paddle();
    Key("F1");
    CloseHelp();
    EXPECT_EQ(Paddle(), paddle);
    Launch();
    LoseLife(1);
    Launch();
    Lose([&] { return NameEntryIsUp(); });
    // A machine that stalls gets all of it at once.
    game.Signal(SIGSTOP);
    desktop_.Hand("type José,");
    desktop_.Hand("key Return key Escape");
    game.Signal(SIGCONT);
    EXPECT_TRUE(Eventually([&] { return Content("kv_his.dat").starts_with("\"Jos\xE9,\"\r\n"); }));
    EXPECT_TRUE(Eventually([&] { return FieldIsUp(); }));
    Key("Escape");
    EXPECT_TRUE(Eventually([&] { return Seen(250, 150, 700, 260, IsYellow) > 50; }));
    Key("Escape");
    EXPECT_EQ(game.WaitForEnd(), 0);
  }
  const std::string records = Content("kv_his.dat");
  Process again = Start();
  CloseHelp();
  Key("Escape");
  EXPECT_TRUE(Eventually([&] { return TableIsUp(); }));
  EXPECT_EQ(Seen(250, 150, 700, 260, IsYellow), 0);
  Key("Return");
  EXPECT_EQ(again.WaitForEnd(), 0);
  EXPECT_EQ(Content("kv_his.dat"), records);
}

TEST_F(Window, LetterKeysGoByTheirPlaceOnACyrillicLayout) {
  constexpr const char* kPlaceOfP = "33";  // as the server numbers its keys
  constexpr const char* kPlaceOfA = "38";
  desktop_.TakeLayout("ru");
  Process game = Start();
  CloseHelp();
  Key(kPlaceOfP);
  ASSERT_TRUE(Eventually([&] { return PauseIsUp(); }));
  Key(kPlaceOfP);
  ASSERT_TRUE(Eventually([&] { return !PauseIsUp(); }));
  desktop_.Hand(std::string("keydown ctrl key ") + kPlaceOfA + " keyup ctrl");
  ASSERT_TRUE(Eventually([&] { return BoxIsUp(); }));
  Key("Escape");
  ASSERT_TRUE(Eventually([&] { return !BoxIsUp(); }));
  Leave(game);
}

struct Display {
  int width = 0;
  int height = 0;
};
void PrintTo(const Display& display, std::ostream* out) { *out << display.width << 'x' << display.height; }

class WindowOnADisplay : public AnyWindow, public testing::WithParamInterface<Display> {};

// Places in pixels of the display. One is as wide as the screen can be shown exactly, one a little off that,
// and on one black lies above and below.
INSTANTIATE_TEST_SUITE_P(All, WindowOnADisplay,
                         testing::Values(Display{3440, 1440}, Display{1366, 768}, Display{900, 1440}),
                         testing::PrintToStringParamName());

TEST_P(WindowOnADisplay, ThePaddleFollowsToTheEdgesAndAClickThereLaunches) {
  const int width = GetParam().width;
  const int height = GetParam().height;
  const Desktop desktop(width, height);
  const int shown = std::min(height, width * 4 / 5);
  const int top = (height - shown) / 2;
  const auto line = [&](int of_600) { return top + of_600 * shown / 600; };
  const auto look = [&](int from, int to, bool (*fits)(const Colour&)) {
    return desktop.Look().Find(0, line(from), width, line(to), fits);
  };
  const auto field_is_up = [&] { return look(546, 560, IsLit).count > width * 5; };
  Process game = StartIn(desktop.Environment());
  ASSERT_TRUE(Eventually([&] { return look(100, 500, IsCyan).count > 300; }));
  desktop.Hand("key F1");
  ASSERT_TRUE(Eventually(field_is_up));
  const int middle = width / 2;
  struct Place {
    int x;
    int y;
    int paddle;
  };
  for (const Place& place : {Place{0, height / 2, 0}, Place{middle, 0, middle}, Place{0, 0, 0},
                             Place{middle, height - 1, middle}}) {
    SCOPED_TRACE(testing::Message() << place.x << ',' << place.y);
    desktop.Hand("mousemove " + std::to_string(width / 4) + " " + std::to_string(height / 2));
    ASSERT_TRUE(Eventually([&] { return std::abs(look(514, 524, IsLit).left - width / 4) <= 3; }));
    desktop.Hand("mousemove " + std::to_string(place.x) + " " + std::to_string(place.y));
    ASSERT_TRUE(Eventually([&] { return std::abs(look(514, 524, IsLit).left - place.paddle) <= 3; }));
  }
  desktop.Hand("mousemove 0 " + std::to_string(height / 2) + " click 1");
  EXPECT_TRUE(Eventually([&] { return look(250, 450, IsWhite).count > 0; }));
}

/// The game as installed for all users; its folder is not its player's.
class InstalledWindow : public Window {
 protected:
  InstalledWindow() {
    const std::filesystem::path share = folder_.Path() / "share" / "games" / "korvane";
    std::filesystem::create_directories(share);
    std::filesystem::create_directory(folder_.Path() / "games");
    std::filesystem::rename(folder_.Path() / "levels", share / "levels");
    std::filesystem::rename(folder_.Path() / "korvane", folder_.Path() / "games" / "korvane");
  }

  /// Starts the game with a home, comes to its field and leaves it.
  void Play(const std::string& data_home, const std::string& home) {
    std::vector<std::string> environment = desktop_.Environment();
    environment.insert(environment.end(), {"XDG_DATA_HOME=" + data_home, "HOME=" + home});
    Process game({(folder_.Path() / "games" / "korvane").string()}, environment, folder_.Path() / "errors");
    CloseHelp();
    Leave(game);
  }
  bool SomethingIsKeptByTheProgram() const {
    const auto lies_in = [&](const char* folder) {
      return std::filesystem::exists(folder_.Path() / folder / "kv_his.dat");
    };
    return lies_in("games") || lies_in("share/games/korvane");
  }
};

TEST_F(InstalledWindow, ItsPlayersFolderIsWhereTheEnvironmentSays) {
  const std::string home = (folder_.Path() / "home").string();
  Play("share", home);
  EXPECT_TRUE(Content("home/.local/share/korvane/kv_his.dat").starts_with("\".\"\r\n0\r\n"));
  Play((folder_.Path() / "data").string(), home);
  EXPECT_TRUE(Content("data/korvane/kv_his.dat").starts_with("\".\"\r\n0\r\n"));
  EXPECT_EQ(Content("errors"), "");
  EXPECT_FALSE(SomethingIsKeptByTheProgram());
}

TEST_F(InstalledWindow, WithoutAHomeItPlaysAndKeepsNothing) {
  Play("", "");
  EXPECT_EQ(LinesSaid(), 1) << Content("errors");
  EXPECT_FALSE(SomethingIsKeptByTheProgram());
}

}  // namespace
}  // namespace tests
