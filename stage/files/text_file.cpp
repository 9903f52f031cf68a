#include "stage/files/text_file.h"

#include <algorithm>
#include <cmath>
#include <system_error>

#include "stage/files/path_text.h"
#include "stage/machines/machine.h"

namespace stage {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kFieldEnds = ",\r\n";

/// The file that a name stands for, through all links, also where there is none yet.
std::filesystem::path Behind(std::filesystem::path file) {
  constexpr int kMostLinks = 40;
  std::error_code error;
  for (int links = 0; std::filesystem::is_symlink(file, error); ++links) {
    const std::filesystem::path to = std::filesystem::read_symlink(file, error);
    if (error || links == kMostLinks) throw RuntimeError("cannot follow " + TextOf(file));
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
    throw RuntimeError("read-only: " + TextOf(file));
}

}  // namespace

std::filesystem::path HostPath(const std::string& folder, std::string_view name) {
  std::string below(name);
  std::replace(below.begin(), below.end(), '\\', '/');
  return PathOf(folder + '/' + below).make_preferred();
}

std::string ReadStart(const std::filesystem::path& file, std::size_t most) {
  return machine::ReadStart(file, most);
}

std::string ReadWhole(const std::filesystem::path& file, std::size_t most) {
  std::string bytes = ReadStart(file, most + 1);
  if (bytes.size() > most) throw RuntimeError("too long: " + TextOf(file));
  return bytes;
}

void WriteWhole(const std::filesystem::path& name, std::string_view bytes) {
  const std::filesystem::path file = Behind(name);
  RequireReplaceable(file);
  machine::Replace(file, bytes);
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
  const std::string_view text = field.substr(0, field.find_last_not_of(kBlanks) + 1);
  if (text.empty()) return 0;
  const std::string_view digits = text.substr(text.front() == '-' || text.front() == '+' ? 1 : 0);
  const auto point = std::count(digits.begin(), digits.end(), '.');
  const bool plain = digits.find_first_not_of("0123456789.") == std::string_view::npos;
  if (!plain || point > 1 || digits.size() == std::size_t(point)) throw RuntimeError("not a number");
  const Double number = Val(text);
  if (!std::isfinite(number)) throw RuntimeError("overflow");
  return number + 0.0;  // turns -0 into 0
}

}  // namespace stage
