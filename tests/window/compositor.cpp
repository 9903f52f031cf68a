#include "tests/window/compositor.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <fstream>

#include "tools/files.h"

namespace tests {
namespace {

/// The compositor does not run as root; then it runs as nobody.
std::vector<std::string> Command(const std::filesystem::path& folder) {
  std::vector<std::string> command{"sway", "-c", (folder / "config").string()};
  if (getuid() != 0) return command;
  const passwd* const nobody = getpwnam("nobody");  // cppcheck-suppress getpwnamCalled; one thread asks
  EXPECT_NE(nobody, nullptr);
  EXPECT_EQ(chown(folder.c_str(), nobody->pw_uid, nobody->pw_gid), 0);
  const std::vector<std::string> as_nobody{"setpriv", "--reuid=nobody", "--regid=nogroup", "--clear-groups"};
  command.insert(command.begin(), as_nobody.begin(), as_nobody.end());
  return command;
}

std::filesystem::path Configured(const std::filesystem::path& folder, const Desktop& desktop,
                                 const std::string& scale) {
  const auto [width, height] = desktop.Size();
  std::ofstream(folder / "config") << "xwayland disable\noutput X11-1 mode --custom " << width << 'x'
                                   << height << "\noutput X11-1 scale " << scale << '\n';
  return folder;
}

}  // namespace

Compositor::Compositor(const Desktop& desktop, const std::string& scale, const std::string& layout,
                       const std::string& variant)
    : process_(Command(Configured(folder_.Path(), desktop, scale)),
               {desktop.Environment().front(), "WLR_BACKENDS=x11", "WLR_RENDERER=pixman",
                "XDG_RUNTIME_DIR=" + folder_.Path().string(), "HOME=" + folder_.Path().string(),
                "XKB_DEFAULT_LAYOUT=" + layout, "XKB_DEFAULT_VARIANT=" + variant},
               folder_.Path() / "errors") {
  if (Eventually([&] { return !Socket("wayland-", "").empty() && !Socket("sway-ipc", ".sock").empty(); }))
    return;
  complaint_ = "sway does not run: " + tools::ReadFile(folder_.Path() / "errors");
}

std::string Compositor::Socket(const std::string& start, const std::string& end) const {
  for (const auto& entry : std::filesystem::directory_iterator(folder_.Path())) {
    const std::string name = entry.path().filename().string();
    if (name.starts_with(start) && name.ends_with(end) && entry.is_socket()) return entry.path().string();
  }
  return {};
}

std::vector<std::string> Compositor::Environment() const {
  return {"DISPLAY=", "XDG_RUNTIME_DIR=" + folder_.Path().string(),
          "WAYLAND_DISPLAY=" + Socket("wayland-", ""), "LANG=C.UTF-8"};
}

void Compositor::Do(const std::string& command) const {
  Process({"swaymsg", "-q", "-s", Socket("sway-ipc", ".sock"), "--", command}).WaitForEnd();
}

}  // namespace tests
