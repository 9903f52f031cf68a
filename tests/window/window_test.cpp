// The real program in a real window, played with the real pointer and keys and watched from outside. Nothing
// here goes by time: each step waits for what is to be seen or read.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <csignal>

#include "tests/window/desktop.h"
#include "tools/files.h"

namespace tests {
namespace {

bool IsWhite(const Colour& colour) { return colour[0] > 200 && colour[1] > 200 && colour[2] > 200; }
bool IsLit(const Colour& colour) { return colour[0] + colour[1] + colour[2] > 90; }
bool IsYellow(const Colour& colour) { return colour[0] > 200 && colour[1] > 200 && colour[2] < 60; }
bool IsPaleYellow(const Colour& colour) {
  return colour[0] > 240 && colour[1] > 240 && colour[2] > 150 && colour[2] < 230;
}
bool IsFrame(const Colour& colour) { return colour == Colour{0xB9, 0xC2, 0xD6}; }
bool IsCyan(const Colour& colour) { return colour[0] < 170 && colour[1] > 200 && colour[2] > 200; }

/// The game in a folder of its own.
class AnyWindow : public testing::Test {
 protected:
  AnyWindow() {
    std::filesystem::copy(tools::OwnFolder() / "korvane", folder_.Path() / "korvane");
    LayLevel("600,400,250,480,1\n2000,5000,250,2000,5\n");
  }

  /// A level without bonuses; a block that no ball reaches keeps it from coming to its end.
  void LayLevel(const std::string& blocks) const {
    tools::WriteFile(folder_.Path() / "levels" / "1.sav",
                     "pisca,0,500,10,0\n-2000,5000,250,480,5\n" + blocks);
  }
  Process StartOn(const Desktop& desktop, const std::vector<std::string>& more = {}) const {
    std::vector<std::string> environment = desktop.Environment();
    environment.insert(environment.end(), more.begin(), more.end());
    return Process({Program()}, environment, folder_.Path() / "errors");
  }
  std::string Program() const { return (folder_.Path() / "korvane").string(); }
  std::string Content(const char* name) const { return tools::ReadFile(folder_.Path() / name); }
  std::ptrdiff_t LinesSaid() const {
    const std::string errors = Content("errors");
    return std::count(errors.begin(), errors.end(), '\n');
  }

  tools::TempFolder folder_;
};

/// The game on a display of 800 x 600. All places are in its pixels.
class Window : public AnyWindow {
 protected:
  static constexpr int kPaddleLine = 512;
  static constexpr int kUnderBlocks = 250;

  Process Start(const std::vector<std::string>& environment = {}) const {
    return StartOn(desktop_, environment);
  }
  int Seen(int left, int top, int right, int bottom, bool (*fits)(const Colour&)) const {
    return desktop_.Look().Find(left, top, right, bottom, fits).count;
  }
  bool SomethingIsUp() const { return Seen(0, 0, 800, 600, IsLit) > 500; }
  /// The bar under the field is up, so the play form is seen.
  bool FieldIsUp() const { return Seen(400, 540, 401, 565, IsLit) > 5; }
  bool HelpIsUp() const { return !FieldIsUp() && Seen(240, 130, 620, 520, IsCyan) > 300; }
  bool TableIsUp() const { return !FieldIsUp() && Seen(540, 160, 600, 515, IsLit) > 20; }
  /// The left side of the field to type into.
  bool NameEntryIsUp() const { return Seen(245, 347, 251, 384, IsLit) > 30; }
  bool BoxIsUp() const { return Seen(230, 210, 570, 390, IsFrame) > 400; }
  bool PauseIsUp() const { return FieldIsUp() && Seen(330, 280, 470, 320, IsPaleYellow) > 300; }
  bool LifeIsUp(int number) const {
    return Seen(126 * number - 110, 570, 126 * number - 20, 592, IsLit) > 100;
  }
  Screenshot::Found Ball() const { return desktop_.Look().Find(0, kUnderBlocks, 800, kPaddleLine, IsWhite); }
  int Paddle() const { return desktop_.Look().Find(0, kPaddleLine, 800, kPaddleLine + 15, IsLit).left; }

  void Key(const std::string& name) const { desktop_.Hand("key " + name); }
  void CloseHelp() const {
    ASSERT_TRUE(Eventually([&] { return HelpIsUp(); }));
    Key("F1");
    ASSERT_TRUE(Eventually([&] { return FieldIsUp(); }));
  }
  /// The paddle keeps away from the ball until it is lost, which is seen by what `lost` tells.
  void Lose(const std::function<bool()>& lost) const {
    ASSERT_TRUE(Eventually([&] {
      if (lost()) return true;
      const auto ball = Ball();
      if (ball.count > 0) desktop_.Hand(ball.x < 400 ? "mousemove 790 300" : "mousemove 5 300");
      return false;
    }));
  }
  void Launch() const {
    desktop_.Hand("mousemove 5 300");
    ASSERT_TRUE(Eventually([&] { return Paddle() < 10 && Ball().count > 0 && Ball().x < 60; }));
    desktop_.Hand("click 1");
    ASSERT_TRUE(Eventually([&] { return Ball().y < kPaddleLine - 50; }));
  }
  void LoseLife(int number) const {
    Lose([&] { return !LifeIsUp(number); });
  }
  void LoseGame(const std::function<bool()>& over) const {
    for (const int life : {2, 1}) {
      Launch();
      LoseLife(life);
    }
    Launch();
    Lose(over);
  }
  void Leave(Process& game) const {
    Key("Escape");
    EXPECT_TRUE(Eventually([&] { return TableIsUp(); }));
    Key("Escape");
    EXPECT_EQ(game.WaitForEnd(), 0);
  }

  Desktop desktop_{800, 600};
};

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
  Process game = StartOn(desktop);
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
