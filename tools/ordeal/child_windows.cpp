#include <windows.h>

#include <stdexcept>

#include "stage/files/path_text.h"
#include "tools/ordeal/child.h"

namespace tools {
namespace {

constexpr DWORD kPipeBytes = 1 << 16;

struct CloseIt {
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<void, CloseIt>;

/// The running program and the words, each in quotes.
std::wstring CommandLine(const std::vector<std::string>& words) {
  constexpr DWORD kLongest = 32768;
  std::wstring line(kLongest, L'\0');
  line.resize(GetModuleFileNameW(nullptr, line.data(), kLongest));
  line = L'"' + line + L'"';
  for (const std::string& word : words) line += L" \"" + stage::PathOf(word).wstring() + L'"';
  return line;
}

}  // namespace

struct Child::Process {
  Handle process;
  Handle output;
};

Child::Child(const std::vector<std::string>& words) : process_(std::make_unique<Process>()) {
  HANDLE from = nullptr;
  HANDLE to = nullptr;
  if (CreatePipe(&from, &to, nullptr, kPipeBytes) == 0) throw std::runtime_error("no pipe");
  process_->output.reset(from);
  const Handle written(to);
  SetHandleInformation(to, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdOutput = to;
  start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
  PROCESS_INFORMATION started{};
  std::wstring line = CommandLine(words);
  if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &started) ==
      0)
    throw std::runtime_error("no process");
  CloseHandle(started.hThread);
  process_->process.reset(started.hProcess);
}

Child::~Child() { Kill(); }

void Child::Kill() {
  if (!process_->process) return;
  TerminateProcess(process_->process.get(), 1);
  WaitForSingleObject(process_->process.get(), INFINITE);
  process_->process.reset();
}

bool Child::Read(void* bytes, std::size_t count) {
  DWORD read = 0;
  const auto size = static_cast<DWORD>(count);
  return ReadFile(process_->output.get(), bytes, size, &read, nullptr) != 0 && read == size;
}

}  // namespace tools
