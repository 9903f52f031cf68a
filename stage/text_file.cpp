#include "stage/text_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <fstream>
#include <system_error>
#include <thread>

namespace stage {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kFieldEnds = ",\r\n";

using Clock = std::chrono::steady_clock;

constexpr auto kPatience = std::chrono::seconds(1);  // with another program that writes the same file
constexpr auto kBetweenLooks = std::chrono::milliseconds(2);

/// An open file of the system, closed at the end of its life.
class Descriptor {
 public:
  Descriptor(const std::filesystem::path& path, int flags) : number_(open(path.c_str(), flags, 0644)) {
    if (number_ < 0) throw RuntimeError("cannot open " + path.string());
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

/// The file that a name stands for, through all links, also where there is none yet.
std::filesystem::path Behind(std::filesystem::path file) {
  constexpr int kMostLinks = 40;
  std::error_code error;
  for (int links = 0; std::filesystem::is_symlink(file, error); ++links) {
    const std::filesystem::path to = std::filesystem::read_symlink(file, error);
    if (error || links == kMostLinks) throw RuntimeError("cannot follow " + file.string());
    file = file.parent_path() / to;
  }
  return file;
}

/// Raises RuntimeError if something stands there that is not to be replaced.
void RequireReplaceable(const std::filesystem::path& file) {
  std::error_code error;
  const auto status = std::filesystem::status(file, error);
  if (!std::filesystem::exists(status)) return;
  const bool writable =
      (status.permissions() & std::filesystem::perms::owner_write) != std::filesystem::perms::none;
  if (!std::filesystem::is_regular_file(status) || !writable)
    throw RuntimeError("read-only: " + file.string());
}

/// Fills the file `fresh` and puts it in the place of `file`. False if another writer that held it has put it
/// there meanwhile.
bool Replace(const std::filesystem::path& file, const std::filesystem::path& fresh, std::string_view bytes,
             Clock::time_point end) {
  // Whatever somebody has put there under that name, a link or a pipe, is neither followed nor waited for.
  const Descriptor target(fresh, O_WRONLY | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
  if (!target.IsPlain()) throw RuntimeError("cannot write " + fresh.string());
  target.Hold(end);
  if (!target.IsNamed(fresh)) return false;
  std::error_code error;
  try {
    target.Clear();
    target.Write(bytes);
    target.Flush();
    target.TakeModeOf(file);
    std::filesystem::rename(fresh, file, error);
    if (error) throw RuntimeError("cannot replace " + file.string());
  } catch (const RuntimeError&) {
    std::filesystem::remove(fresh, error);
    throw;
  }
  return true;
}

}  // namespace

std::filesystem::path HostPath(const std::string& folder, std::string_view name) {
  std::string below(name);
  std::ranges::replace(below, '\\', '/');
  return folder + '/' + below;
}

std::string ReadStart(const std::filesystem::path& file, std::size_t most) {
  std::error_code error;
  const bool plain = std::filesystem::is_regular_file(file, error);
  std::ifstream stream(file, std::ios::binary | std::ios::ate);
  if (!plain || !stream) throw RuntimeError("cannot read " + file.string());
  // The size is that of the file as opened: another one may be put in its place at any moment.
  std::string bytes(std::min(static_cast<std::size_t>(stream.tellg()), most), '\0');
  stream.seekg(0);
  stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (stream.bad()) throw RuntimeError("cannot read " + file.string());
  bytes.resize(static_cast<std::size_t>(stream.gcount()));
  return bytes;
}

std::string ReadWhole(const std::filesystem::path& file, std::size_t most) {
  std::string bytes = ReadStart(file, most + 1);
  if (bytes.size() > most) throw RuntimeError("too long: " + file.string());
  return bytes;
}

void WriteWhole(const std::filesystem::path& name, std::string_view bytes) {
  const std::filesystem::path file = Behind(name);
  RequireReplaceable(file);
  std::filesystem::path fresh = file;
  // One name for all writers: what a killed one leaves behind is taken over by the next. Other users have
  // their own, since they could not open this one.
  fresh += "." + std::to_string(getuid()) + ".tmp";
  const auto end = Clock::now() + kPatience;
  while (!Replace(file, fresh, bytes, end)) {
  }
  // The file is in place; not every file system can flush a folder.
  const std::filesystem::path folder = file.has_parent_path() ? file.parent_path() : ".";
  ResumeNext([&] { Descriptor(folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC).Flush(); });
}

std::string_view FieldReader::Next() {
  if (AtEnd()) throw RuntimeError("end of file");
  SkipBlanks();
  std::string_view field;
  if (rest_.starts_with('"')) {
    rest_.remove_prefix(1);
    field = rest_.substr(0, rest_.find('"'));
    rest_.remove_prefix(std::min(field.size() + 1, rest_.size()));
    SkipBlanks();
  } else {
    field = rest_.substr(0, rest_.find_first_of(kFieldEnds));
    rest_.remove_prefix(field.size());
  }
  TakeDelimiter();
  return field;
}

void FieldReader::SkipBlanks() {
  rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
}

void FieldReader::TakeDelimiter() {
  if (rest_.starts_with("\r\n")) {
    rest_.remove_prefix(2);
  } else if (!rest_.empty() && kFieldEnds.find(rest_.front()) != std::string_view::npos) {
    rest_.remove_prefix(1);
  }
}

Double NumberOf(std::string_view field) {
  const std::size_t last = field.find_last_not_of(kBlanks);
  const std::string_view text = field.substr(0, last == std::string_view::npos ? 0 : last + 1);
  if (text.empty()) return 0;
  const std::string_view digits = text.substr(text.front() == '-' || text.front() == '+' ? 1 : 0);
  const auto point = std::ranges::count(digits, '.');
  const bool plain = digits.find_first_not_of("0123456789.") == std::string_view::npos;
  if (!plain || point > 1 || digits.size() == std::size_t(point)) throw RuntimeError("not a number");
  const Double number = Val(text);
  if (!std::isfinite(number)) throw RuntimeError("overflow");
  return number + 0.0;  // a minus before zero is gone with this
}

}  // namespace stage
