// The workshop on a display, as a test sees it and draws in it.
#pragma once

#include "oficina/desenho/desenho.h"
#include "tests/window/window.h"

namespace tests {

/// On a display of 800 x 600; a brick of the grid is 32 x 17 of its pixels.
class OficinaWindow : public testing::Test {
 protected:
  OficinaWindow() {
    std::filesystem::copy(stage::machine::OwnFolder() / "korvane-oficina", folder_.Path() / "oficina");
    std::filesystem::create_directory(folder_.Path() / "levels");
  }
  Process Start(const std::vector<std::string>& environment) const {
    return Process({(folder_.Path() / "oficina").string()}, environment, folder_.Path() / "errors");
  }
  int Seen(int left, int top, int right, int bottom, bool (*fits)(const Colour&)) const {
    return desktop_.Look().Find(left, top, right, bottom, fits).count;
  }
  bool FieldIsUp() const { return Seen(400, 540, 401, 565, IsLit) > 5; }
  bool BoxIsUp() const { return Seen(230, 210, 570, 390, IsFrame) > 400; }
  bool BlocksAt(int x, int y) const { return Seen(x - 10, y - 4, x + 10, y + 4, IsLit) > 100; }
  std::filesystem::path File(const char* name) const { return folder_.Path() / "levels" / name; }
  std::vector<desenho::Block> BlocksIn(const char* name) const {
    return desenho::LeDesenho(tools::ReadFile(File(name))).desenho.blocos;
  }
  void DrawRow(int y) const {
    const std::string line = ' ' + std::to_string(y);
    desktop_.Hand("mousemove 200" + line + " mousedown 1");
    desktop_.Hand("mousemove 300" + line);
    ASSERT_TRUE(Eventually([&] { return BlocksAt(200, y) && BlocksAt(300, y); }));
    desktop_.Hand("mouseup 1 mousemove 600 480");
  }
  /// Two rows by the left button, a hole in one of them by the right one.
  void DrawAndSave(Process& oficina) const {
    ASSERT_TRUE(Eventually([&] { return FieldIsUp(); }));
    DrawRow(120);
    DrawRow(220);
    desktop_.Hand("mousemove 250 220 click 3 mousemove 600 480");
    ASSERT_TRUE(Eventually([&] { return !BlocksAt(250, 220); }));
    desktop_.Hand("key ctrl+s");
    ASSERT_TRUE(Eventually([&] { return BoxIsUp(); }));
    desktop_.Hand("key Return");
    ASSERT_TRUE(Eventually([&] { return std::filesystem::exists(File("1.sav")); }));
    desktop_.Hand("key Escape");
    EXPECT_EQ(oficina.WaitForEnd(), 0);
    const std::vector<desenho::Block> blocos = BlocksIn("1.sav");
    EXPECT_EQ(blocos.size(), 7U);
    EXPECT_FALSE(desenho::Confere({{}, blocos}).fault);
    EXPECT_EQ(tools::ReadFile(folder_.Path() / "errors"), "");
  }

  tools::TempFolder folder_;
  Desktop desktop_{800, 600};
};

}  // namespace tests
