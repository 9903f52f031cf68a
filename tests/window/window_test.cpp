// The real program in a real window, played with the real pointer and keys and watched from outside.
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <thread>

#include "tests/window/desktop.h"
#include "tools/files.h"
#include "tools/temp_folder.h"

namespace tests {
namespace {

bool IsWhite(const Colour& colour) { return colour[0] > 200 && colour[1] > 200 && colour[2] > 200; }
bool IsLit(const Colour& colour) { return colour[0] + colour[1] + colour[2] > 90; }
bool IsYellow(const Colour& colour) { return colour[0] > 200 && colour[1] > 200 && colour[2] < 60; }

/// The game in a folder of its own on a display of its own. All places are in pixels of 800 x 600.
class Window : public testing::Test {
 protected:
  static constexpr int kPaddleLine = 512;
  static constexpr int kUnderBlocks = 250;

  Window() {
    std::filesystem::copy(tools::OwnFolder() / "korvane", folder_.Path() / "korvane");
    // One block over the middle, where a straight ball meets it.
    tools::WriteFile(folder_.Path() / "levels" / "1.sav",
                     "pisca,0,500,10,0\n600,400,250,480,1\n2000,5000,250,2000,5\n");
  }

  Process Start() { return Process({Program()}, desktop_.Environment(), folder_.Path() / "errors"); }
  std::string Program() const { return (folder_.Path() / "korvane").string(); }
  std::string Content(const char* name) const { return tools::ReadFile(folder_.Path() / name); }
  /// The bar under the field is up, so the play form is seen.
  bool FieldIsUp() const { return desktop_.Look().Find(400, 540, 401, 565, IsLit).count > 5; }
  bool TableIsUp() const {
    return desktop_.Look().Find(300, 190, 620, 520, IsLit).count > 20 && !FieldIsUp();
  }
  bool SomethingIsUp() const { return desktop_.Look().Find(0, 0, 800, 600, IsLit).count > 500; }
  Screenshot::Found Ball() const { return desktop_.Look().Find(0, kUnderBlocks, 800, kPaddleLine, IsWhite); }
  void CloseHelp() {
    ASSERT_TRUE(Eventually([&] { return SomethingIsUp(); }));
    ASSERT_TRUE(Eventually([&] {
      if (!FieldIsUp()) {
        desktop_.Hand("key F1");
        std::this_thread::sleep_for(std::chrono::milliseconds(300));
      }
      return FieldIsUp();
    }));
  }

  Desktop desktop_{800, 600};
  tools::TempFolder folder_;
};

TEST_F(Window, PaddleAndBallGoWhereTheHandSends) {
  Process game = Start();
  CloseHelp();
  for (const int x : {200, 555, 300}) {
    desktop_.Hand("mousemove " + std::to_string(x) + " 300");
    EXPECT_TRUE(Eventually([&] {
      const auto paddle = desktop_.Look().Find(0, kPaddleLine, 800, kPaddleLine + 15, IsLit);
      return std::abs(paddle.left - x) <= 2 && std::abs(Ball().x - (x + 32)) <= 2;
    })) << "pointer at "
        << x;
  }
  const auto held = Ball();
  EXPECT_NEAR(held.y, kPaddleLine - 8, 2);
  desktop_.Hand("click 1");
  EXPECT_TRUE(Eventually([&] {
    const auto ball = Ball();
    return ball.count > 0 && ball.y < held.y - 100;
  }));
  desktop_.Hand("key Escape");
  EXPECT_TRUE(Eventually([&] { return TableIsUp(); }));
  desktop_.Hand("key Escape");
  EXPECT_EQ(game.WaitForEnd(), 0);
  EXPECT_EQ(Content("errors"), "");
}

TEST_F(Window, SignalsEndTheGameInOrder) {
  for (const int signal : {SIGTERM, SIGINT}) {
    Process game = Start();
    ASSERT_TRUE(Eventually([&] { return SomethingIsUp(); }));
    game.Signal(signal);
    EXPECT_EQ(game.WaitForEnd(), 0);
  }
}

TEST_F(Window, WithoutADisplayThereIsOneLine) {
  Process game({Program()}, {"DISPLAY=", "WAYLAND_DISPLAY="}, folder_.Path() / "errors");
  EXPECT_EQ(game.WaitForEnd(), 1);
  const std::string errors = Content("errors");
  EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
}

TEST_F(Window, ARecordIsMadeAndKept) {
  {
    Process game = Start();
    CloseHelp();
    desktop_.Hand("mousemove 400 300");
    desktop_.Hand("click 1");
    EXPECT_TRUE(Eventually([&] { return Content("config.ini").starts_with("[SETUP]\r\nVkorv="); }));
    // The paddle goes to the wall and the ball is lost, three times.
    bool entered = Eventually([&] {
      desktop_.Hand("mousemove 5 300 click 1 mousemove 790 300");
      std::this_thread::sleep_for(std::chrono::milliseconds(700));
      return !FieldIsUp();
    });
    ASSERT_TRUE(entered);
    desktop_.Hand("type --delay 60 José,");
    desktop_.Hand("key Return");
    EXPECT_TRUE(Eventually([&] { return Content("kv_his.dat").starts_with("\"Jos\xE9,\"\r\n"); }));
    EXPECT_TRUE(Eventually([&] { return desktop_.Look().Find(250, 150, 700, 260, IsYellow).count > 50; }));
    desktop_.Hand("key Escape");
    EXPECT_TRUE(Eventually([&] { return FieldIsUp(); }));
    desktop_.Hand("key Escape");
    EXPECT_TRUE(Eventually([&] { return TableIsUp(); }));
    desktop_.Hand("key Escape");
    EXPECT_EQ(game.WaitForEnd(), 0);
  }
  const std::string records = Content("kv_his.dat");
  Process again = Start();
  CloseHelp();
  desktop_.Hand("key Escape");
  EXPECT_TRUE(Eventually([&] { return TableIsUp(); }));
  EXPECT_EQ(desktop_.Look().Find(250, 150, 700, 260, IsYellow).count, 0);
  desktop_.Hand("key Return");
  EXPECT_EQ(again.WaitForEnd(), 0);
  EXPECT_EQ(Content("kv_his.dat"), records);
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
    desktop_.Hand("key Escape");
    EXPECT_TRUE(Eventually([&] { return TableIsUp(); }));
    desktop_.Hand("key Escape");
    EXPECT_EQ(game.WaitForEnd(), 0);
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
  const std::string errors = Content("errors");
  EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << errors;
  EXPECT_FALSE(SomethingIsKeptByTheProgram());
}

}  // namespace
}  // namespace tests
