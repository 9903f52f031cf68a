#include "stage/files/profile.h"

#include <algorithm>

#include "stage/files/text_file.h"
#include "stage/names.h"

namespace stage {
namespace {

constexpr std::size_t kMostBytes = 1 << 20;

std::string_view Trimmed(std::string_view text) {
  const auto blank = [](char c) { return c == ' ' || c == '\t'; };
  while (!text.empty() && blank(text.front())) text.remove_prefix(1);
  while (!text.empty() && blank(text.back())) text.remove_suffix(1);
  return text;
}

/// A line without its end; `rest` is shortened by both.
std::string_view TakeLine(std::string_view& rest) {
  const std::string_view line = rest.substr(0, rest.find_first_of("\r\n"));
  rest.remove_prefix(line.size());
  rest.remove_prefix(rest.starts_with("\r\n") ? 2 : std::min<std::size_t>(1, rest.size()));
  return line;
}

bool IsSection(std::string_view line) { return Trimmed(line).starts_with('['); }

std::string_view SectionOf(std::string_view line) {
  const std::string_view text = Trimmed(line);
  return Trimmed(text.substr(1, text.find(']') - 1));
}

/// Where in the text a key's value stands, or where the section ends that should hold it.
struct Place {
  bool section = false;
  bool key = false;
  std::size_t from = 0;
  std::size_t to = 0;
};

Place Find(std::string_view text, std::string_view section, std::string_view key) {
  Place place;
  std::string_view rest = text;
  while (!rest.empty()) {
    const std::string_view line = TakeLine(rest);
    const auto start = static_cast<std::size_t>(line.data() - text.data());
    if (IsSection(line)) {
      if (place.section) break;
      place.section = SameName(SectionOf(line), section);
    } else if (place.section) {
      const std::size_t equals = line.find('=');
      if (equals != std::string_view::npos && SameName(Trimmed(line.substr(0, equals)), key)) {
        return {true, true, start + equals + 1, start + line.size()};
      }
    }
    if (place.section && !Trimmed(line).empty()) place.from = place.to = start + line.size();
  }
  return place;
}

std::string Content(const std::filesystem::path& file) {
  std::error_code error;
  const bool missing = !std::filesystem::exists(file, error) && !error;
  return missing ? std::string() : ReadWhole(file, kMostBytes);
}

}  // namespace

std::optional<std::string_view> FindProfileValue(std::string_view text, std::string_view section,
                                                 std::string_view key) {
  const Place place = Find(text, section, key);
  if (!place.key) return std::nullopt;
  return Trimmed(text.substr(place.from, place.to - place.from));
}

std::string WithProfileValue(std::string_view text, std::string_view section, std::string_view key,
                             std::string_view value) {
  const Place place = Find(text, section, key);
  std::string changed(text);
  if (place.key) return changed.replace(place.from, place.to - place.from, value);
  const std::string end =
      text.find('\n') != std::string_view::npos && text.find("\r\n") == std::string_view::npos ? "\n"
                                                                                               : "\r\n";
  const std::string line = std::string(key) + "=" + std::string(value);
  if (place.section) return changed.insert(place.to, end + line);
  if (!text.empty() && !text.ends_with('\n')) changed += end;
  return changed + "[" + std::string(section) + "]" + end + line + end;
}

std::string GetPrivateProfileStringA(std::string_view section, std::string_view key,
                                     std::string_view fallback, std::size_t size,
                                     const std::filesystem::path& file) {
  std::string text;
  ResumeNext([&] { text = Content(file); });
  return std::string(FindProfileValue(text, section, key).value_or(fallback).substr(0, size - 1));
}

void WritePrivateProfileStringA(std::string_view section, std::string_view key, std::string_view value,
                                const std::filesystem::path& file) {
  WriteWhole(file, WithProfileValue(Content(file), section, key, value));
}

}  // namespace stage
