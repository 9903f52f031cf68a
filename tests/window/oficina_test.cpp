// The workshop in its window, drawn in with the real pointer and keys.
#include <csignal>

#include "tests/window/oficina_window.h"

namespace tests {
namespace {

TEST_F(OficinaWindow, DrawsALevelAndSavesIt) {
  Process oficina = Start(desktop_.Environment());
  DrawAndSave(oficina);
}

TEST_F(OficinaWindow, LosesNoDrawingWhenItIsKilled) {
  {
    Process oficina = Start(desktop_.Environment());
    ASSERT_TRUE(Eventually([&] { return FieldIsUp(); }));
    DrawRow(120);
    ASSERT_TRUE(Eventually([&] { return std::filesystem::exists(File("rascunho.sav")); }));
    oficina.Signal(SIGKILL);
    EXPECT_NE(oficina.WaitForEnd(), 0);
  }
  Process oficina = Start(desktop_.Environment());
  ASSERT_TRUE(Eventually([&] { return BoxIsUp(); }));
  desktop_.Hand("key Return");
  EXPECT_TRUE(Eventually([&] { return BlocksAt(200, 120) && BlocksAt(300, 120); }));
}

TEST_F(OficinaWindow, TriesTheLevelAndComesBack) {
  Process oficina = Start(desktop_.Environment());
  ASSERT_TRUE(Eventually([&] { return FieldIsUp(); }));
  DrawRow(120);
  const auto ball = [&] { return Seen(0, 480, 800, 512, IsWhite) > 20; };
  ASSERT_FALSE(ball());
  desktop_.Hand("key F5");
  ASSERT_TRUE(Eventually(ball));
  desktop_.Hand("key Escape");
  EXPECT_TRUE(Eventually([&] { return !ball() && BlocksAt(200, 120); }));
  DrawRow(220);
}

}  // namespace
}  // namespace tests
