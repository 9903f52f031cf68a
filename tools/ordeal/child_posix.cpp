#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <stdexcept>

#include "tools/ordeal/child.h"

namespace tools {

struct Child::Process {
  pid_t number = -1;
  int output = -1;
};

Child::Child(const std::vector<std::string>& words) : process_(std::make_unique<Process>()) {
  constexpr const char* kSelf = "/proc/self/exe";
  std::array<int, 2> pipe{};
  if (pipe2(pipe.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  std::vector<std::string> all = words;
  all.insert(all.begin(), kSelf);
  std::vector<char*> pointers;
  pointers.reserve(all.size() + 1);
  for (std::string& word : all) pointers.push_back(word.data());
  pointers.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, pipe[1], STDOUT_FILENO);
  const int failed = posix_spawn(&process_->number, kSelf, &actions, nullptr, pointers.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  close(pipe[1]);
  process_->output = pipe[0];
  if (failed != 0) {
    close(pipe[0]);
    throw std::runtime_error("no process");
  }
}

Child::~Child() {
  Kill();
  close(process_->output);
}

void Child::Kill() {
  if (process_->number < 0) return;
  kill(process_->number, SIGKILL);
  waitpid(process_->number, nullptr, 0);
  process_->number = -1;
}

bool Child::Read(void* bytes, std::size_t count) {
  // What is written at once comes at once, as long as it is short.
  return read(process_->output, bytes, count) == static_cast<ssize_t>(count);
}

}  // namespace tools
