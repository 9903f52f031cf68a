#include "tests/window/desktop.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <thread>

namespace tests {
namespace {

constexpr auto kStep = std::chrono::milliseconds(20);
constexpr auto kLongest = std::chrono::seconds(15);

/// A display number that no server has.
std::string FreeDisplay() {
  int number = 50 + getpid() % 400;
  while (std::filesystem::exists("/tmp/.X11-unix/X" + std::to_string(number))) ++number;
  return ":" + std::to_string(number);
}

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

Colour Screenshot::At(int x, int y) const {
  const std::size_t place = (std::size_t(y) * std::size_t(width) + std::size_t(x)) * 3;
  return {bytes[place], bytes[place + 1], bytes[place + 2]};
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

Desktop::Desktop(int width, int height)
    : display_(FreeDisplay()),
      server_({"Xvfb", display_, "-nolisten", "tcp", "-screen", "0",
               std::to_string(width) + "x" + std::to_string(height) + "x24"},
              {}, "/dev/null") {
  Eventually([&] { return std::filesystem::exists("/tmp/.X11-unix/X" + display_.substr(1)); });
}

Screenshot Desktop::Look() const {
  const std::string file = "/tmp/korvane-look-" + display_.substr(1) + ".ppm";
  Process({"import", "-window", "root", "-depth", "8", file}, Environment()).WaitForEnd();
  std::ifstream stream(file, std::ios::binary);
  std::string magic;
  int most = 0;
  Screenshot shot;
  stream >> magic >> shot.width >> shot.height >> most;
  stream.get();
  shot.bytes.assign(std::istreambuf_iterator<char>(stream), {});
  std::filesystem::remove(file);
  return shot;
}

void Desktop::Hand(const std::string& xdotool_words) const {
  std::vector<std::string> command{"xdotool"};
  std::istringstream words(xdotool_words);
  for (std::string word; words >> word;) command.push_back(word);
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
