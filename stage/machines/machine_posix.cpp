#include "stage/machines/machine.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iostream>
#include <system_error>
#include <thread>

#include "stage/files/path_text.h"

namespace stage::machine {
namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kPatience = std::chrono::seconds(1);  // with another program that writes the same file
constexpr auto kBetweenLooks = std::chrono::milliseconds(2);

/// An open file of the system, closed at the end of its life.
class Descriptor {
 public:
  Descriptor(const std::filesystem::path& path, int flags) : number_(open(path.c_str(), flags, 0644)) {
    if (number_ < 0) throw RuntimeError("cannot open " + TextOf(path));
  }
  ~Descriptor() { close(number_); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  /// Waits until no other program holds the file, but not beyond `end`. Where the machine knows no locks
  /// there is nothing to wait for.
  void Hold(Clock::time_point end) const {
    while (flock(number_, LOCK_EX | LOCK_NB) != 0 && (errno == EWOULDBLOCK || errno == EINTR)) {
      if (Clock::now() > end) throw RuntimeError("held by another program");
      std::this_thread::sleep_for(kBetweenLooks);
    }
  }
  /// A plain file that has no other name.
  bool IsPlain() const {
    struct stat own {};
    return fstat(number_, &own) == 0 && S_ISREG(own.st_mode) && own.st_nlink <= 1;
  }
  /// The name still stands for this file.
  bool IsNamed(const std::filesystem::path& path) const {
    struct stat own {};
    struct stat named {};
    return fstat(number_, &own) == 0 && lstat(path.c_str(), &named) == 0 && own.st_dev == named.st_dev &&
           own.st_ino == named.st_ino;
  }
  void Clear() const {
    if (ftruncate(number_, 0) != 0) throw RuntimeError("cannot write");
  }
  void Write(std::string_view bytes) const {
    while (!bytes.empty()) {
      const ssize_t written = write(number_, bytes.data(), bytes.size());
      if (written <= 0) throw RuntimeError("cannot write");
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
  }
  /// Whoever may read and write that file, if it is there, may do so with this one.
  void TakeModeOf(const std::filesystem::path& path) const {
    struct stat other {};
    if (stat(path.c_str(), &other) == 0 && fchmod(number_, other.st_mode) != 0)
      throw RuntimeError("cannot write");
  }
  void Flush() const {
    if (fsync(number_) != 0) throw RuntimeError("cannot write");
  }

 private:
  int number_;
};

/// Fills the file `fresh` and puts it in the place of `file`. False if another writer that held it has put it
/// there meanwhile.
bool ReplaceHeld(const std::filesystem::path& file, const std::filesystem::path& fresh,
                 std::string_view bytes, Clock::time_point end) {
  // Whatever somebody has put there under that name, a link or a pipe, is neither followed nor waited for.
  const Descriptor target(fresh, O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
  if (!target.IsPlain()) throw RuntimeError("cannot write " + TextOf(fresh));
  target.Hold(end);
  if (!target.IsNamed(fresh)) return false;
  std::error_code error;
  try {
    target.Clear();
    target.Write(bytes);
    target.Flush();
    target.TakeModeOf(file);
    std::filesystem::rename(fresh, file, error);
    if (error) throw RuntimeError("cannot replace " + TextOf(file));
  } catch (const RuntimeError&) {
    std::filesystem::remove(fresh, error);
    throw;
  }
  return true;
}

/// The folder that a variable names. Relative ones would depend on where the program was started.
std::filesystem::path Named(const char* variable) {
  const char* const value = std::getenv(variable);
  const std::filesystem::path folder = value == nullptr ? "" : value;
  return folder.is_absolute() ? folder : std::filesystem::path();
}

}  // namespace

std::string ReadStart(const std::filesystem::path& file, std::size_t most) {
  std::error_code error;
  const bool plain = std::filesystem::is_regular_file(file, error);
  std::ifstream stream(file, std::ios::binary | std::ios::ate);
  if (!plain || !stream) throw RuntimeError("cannot read " + TextOf(file));
  // The size is that of the file as opened: another one may be put in its place at any moment.
  std::string bytes(std::min(static_cast<std::size_t>(stream.tellg()), most), '\0');
  stream.seekg(0);
  stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (stream.bad()) throw RuntimeError("cannot read " + TextOf(file));
  bytes.resize(static_cast<std::size_t>(stream.gcount()));
  return bytes;
}

void Replace(const std::filesystem::path& file, std::string_view bytes) {
  std::filesystem::path fresh = file;
  // One name for all writers: what a killed one leaves behind is taken over by the next. Other users have
  // their own, since they could not open this one.
  fresh += "." + std::to_string(getuid()) + ".tmp";
  const auto end = Clock::now() + kPatience;
  while (!ReplaceHeld(file, fresh, bytes, end)) {
  }
  // The file is in place; not every file system can flush a folder.
  const std::filesystem::path folder = file.has_parent_path() ? file.parent_path() : ".";
  ResumeNext([&] { Descriptor(folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC).Flush(); });
}

std::filesystem::path OwnFolder() {
  std::error_code error;
  return std::filesystem::read_symlink("/proc/self/exe", error).parent_path();
}

std::filesystem::path DataHome() {
  std::filesystem::path data_home = Named("XDG_DATA_HOME");
  if (!data_home.empty()) return data_home;
  const std::filesystem::path home = Named("HOME");
  return home.empty() ? std::filesystem::path() : home / ".local" / "share";
}

std::filesystem::path Nowhere() { return "/dev/null"; }

bool MakePrivateFolder(const std::filesystem::path& folder) { return mkdir(folder.c_str(), S_IRWXU) == 0; }

Double SecondsOfDay() {
  using std::chrono::system_clock;
  const auto now = system_clock::now();
  const std::time_t seconds = system_clock::to_time_t(now);
  std::tm local{};
  localtime_r(&seconds, &local);
  const std::chrono::duration<Double> part = now - std::chrono::floor<std::chrono::seconds>(now);
  return local.tm_hour * 3600.0 + local.tm_min * 60.0 + local.tm_sec + part.count();
}

void WriteOutputAsIs() {}

void TellTheEnd(const std::string& line) { std::cerr << line << '\n'; }

}  // namespace stage::machine
