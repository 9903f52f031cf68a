#include "stage/text_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <system_error>

namespace stage {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kFieldEnds = ",\r\n";

/// An open file of the system, closed at the end of its life.
class Descriptor {
 public:
  Descriptor(const std::filesystem::path& path, int flags) : number_(open(path.c_str(), flags, 0644)) {
    if (number_ < 0) throw RuntimeError("cannot open " + path.string());
  }
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  void Write(std::string_view bytes) const {
    while (!bytes.empty()) {
      const ssize_t written = write(number_, bytes.data(), bytes.size());
      if (written <= 0) throw RuntimeError("cannot write");
      bytes.remove_prefix(static_cast<std::size_t>(written));
    }
  }
  void Flush() const {
    if (fsync(number_) != 0) throw RuntimeError("cannot write");
  }

 private:
  int number_;
};

}  // namespace

std::string ReadWhole(const std::filesystem::path& file, std::size_t most) {
  std::error_code error;
  const bool plain = std::filesystem::is_regular_file(file, error);
  const auto size = plain ? std::filesystem::file_size(file, error) : 0;
  if (!plain || error || size > most) throw RuntimeError("cannot read " + file.string());
  std::ifstream stream(file, std::ios::binary);
  std::string bytes(size, '\0');
  stream.read(bytes.data(), static_cast<std::streamsize>(size));
  if (stream.bad() || !stream.is_open()) throw RuntimeError("cannot read " + file.string());
  bytes.resize(static_cast<std::size_t>(stream.gcount()));
  return bytes;
}

void WriteWhole(const std::filesystem::path& file, std::string_view bytes) {
  std::filesystem::path fresh = file;
  fresh += "." + std::to_string(getpid()) + ".tmp";
  std::error_code error;
  try {
    const Descriptor target(fresh, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC);
    target.Write(bytes);
    target.Flush();
    std::filesystem::rename(fresh, file, error);
    if (error) throw RuntimeError("cannot replace " + file.string());
  } catch (const RuntimeError&) {
    std::filesystem::remove(fresh, error);
    throw;
  }
  const std::filesystem::path folder = file.has_parent_path() ? file.parent_path() : ".";
  Descriptor(folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC).Flush();
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
  return Val(text);
}

}  // namespace stage
