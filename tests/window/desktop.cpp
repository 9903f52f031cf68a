#include "tests/window/desktop.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <sstream>
#include <thread>

#include "tools/files.h"

namespace tests {
namespace {

constexpr auto kStep = std::chrono::milliseconds(20);
constexpr auto kLongest = std::chrono::seconds(60);

}  // namespace

Process::Process(const std::vector<std::string>& command, const std::vector<std::string>& environment,
                 const std::filesystem::path& errors)
    : pid_(fork()) {
  if (pid_ != 0) return;
  for (const std::string& pair : environment) {
    const std::size_t equals = pair.find('=');
    setenv(pair.substr(0, equals).c_str(), pair.substr(equals + 1).c_str(), 1);
  }
  if (!errors.empty()) dup2(open(errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644), STDERR_FILENO);
  std::vector<std::string> words = command;
  std::vector<char*> arguments(words.size() + 1);
  std::ranges::transform(words, arguments.begin(), [](std::string& word) { return word.data(); });
  execvp(arguments[0], arguments.data());
  _exit(127);
}

Process::~Process() {
  if (pid_ > 0) {
    Signal(SIGKILL);
    waitpid(pid_, nullptr, 0);
  }
}

void Process::Signal(int signal) const { kill(pid_, signal); }

int Process::WaitForEnd() {
  int status = 0;
  if (!Eventually([&] { return waitpid(pid_, &status, WNOHANG) == pid_; })) return -1;
  pid_ = -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

Screenshot::Found Screenshot::Find(int left, int top, int right, int bottom,
                                   const std::function<bool(const Colour&)>& fits) const {
  Found found;
  found.left = right;
  for (int y = std::max(top, 0); y < std::min(bottom, height); ++y) {
    for (int x = std::max(left, 0); x < std::min(right, width); ++x) {
      if (!fits(At(x, y))) continue;
      found.x += x;
      found.y += y;
      ++found.count;
      found.left = std::min(found.left, x);
    }
  }
  if (found.count > 0) {
    found.x /= found.count;
    found.y /= found.count;
  }
  return found;
}

/// A connection to the server for looking only.
class Desktop::Eye {
 public:
  explicit Eye(const std::string& display) : connection_(XOpenDisplay(display.c_str()), XCloseDisplay) {}

  Screenshot Look() const {
    Display* const display = connection_.get();
    Screenshot shot;
    shot.width = DisplayWidth(display, DefaultScreen(display));
    shot.height = DisplayHeight(display, DefaultScreen(display));
    const std::unique_ptr<XImage, int (*)(XImage*)> image(
        XGetImage(display, DefaultRootWindow(display), 0, 0, unsigned(shot.width), unsigned(shot.height),
                  AllPlanes, ZPixmap),
        [](XImage* seen) { return XDestroyImage(seen); });
    for (int y = 0; y < shot.height; ++y) {
      for (int x = 0; x < shot.width; ++x) {
        const unsigned long pixel = XGetPixel(image.get(), x, y);
        shot.pixels.push_back({int(pixel >> 16 & 255U), int(pixel >> 8 & 255U), int(pixel & 255U)});
      }
    }
    return shot;
  }

 private:
  std::unique_ptr<Display, int (*)(Display*)> connection_;
};

// The server looks for a free number itself and tells it. Keys do not repeat: on a busy machine they would.
Desktop::Desktop(int width, int height, int depth)
    : size_{width, height},
      server_({"sh", "-c",
               "exec Xvfb -displayfd 3 -nolisten tcp -ac -r -screen 0 " + std::to_string(width) + "x" +
                   std::to_string(height) + "x" + std::to_string(depth) + " 3>" +
                   (folder_.Path() / "number").string()},
              {}, "/dev/null") {
  std::string number;
  Eventually([&] {
    number = tools::ReadFile(folder_.Path() / "number");
    return number.ends_with('\n');
  });
  display_ = ":" + number.substr(0, number.find('\n'));
  eye_ = std::make_unique<Eye>(display_);
}

Desktop::~Desktop() = default;

Screenshot Desktop::Look() const { return eye_->Look(); }

void Desktop::Hand(const std::string& xdotool_words) const {
  std::vector<std::string> command{"xdotool"};
  std::istringstream words(xdotool_words);
  for (std::string word; words >> word;) command.push_back(word);
  Run(command);
}

void Desktop::TakeLayout(const std::string& name, const std::string& variant) const {
  Run({"setxkbmap", name, variant});
}

void Desktop::Run(const std::vector<std::string>& command) const {
  Process(command, Environment()).WaitForEnd();
}

bool Eventually(const std::function<bool()>& condition) {
  const auto end = std::chrono::steady_clock::now() + kLongest;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(kStep);
  }
  return true;
}

}  // namespace tests
