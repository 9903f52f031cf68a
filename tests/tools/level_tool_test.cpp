// The drawer of levels.
#include "tools/level/draw.h"

#include <gtest/gtest.h>

#include "tests/mesa.h"

namespace {

using namespace tests;

const std::string kBlock = "600,3000,250,480,5\n";

TEST(LevelTool, DrawsTheLevelAtTheSizeAskedFor) {
  const stage::TempFolder folder;
  const auto size = [&](stage::PixelSize display) {
    const auto file = folder.Path() / "level.png";
    level::Draw(kBlock, file, display);
    const std::string png = ReadFile(file);
    const auto number = [&](std::size_t at) {
      int value = 0;
      for (std::size_t i = at; i < at + 4; ++i) value = value * 256 + static_cast<unsigned char>(png.at(i));
      return value;
    };
    return stage::PixelSize{number(16), number(20)};
  };
  for (const stage::PixelSize display : {stage::PixelSize{800, 600}, {1366, 768}, {1920, 1080}, {2560, 1080}})
    EXPECT_EQ(size(display), display) << display.width;
  EXPECT_THROW(level::Draw("600,3000", folder.Path() / "none.png", {800, 600}), std::runtime_error);
  EXPECT_FALSE(std::filesystem::exists(folder.Path() / "none.png"));
  EXPECT_THROW(level::Draw(kBlock, folder.Path() / "no" / "folder.png", {800, 600}), std::runtime_error);
}

}  // namespace
