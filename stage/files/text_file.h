// Text files that are read field by field, and files that are replaced as a whole.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "stage/scalars.h"

namespace stage {

/// A file as the machine names it: below `folder`, which the machine named, by a name with backslashes.
std::filesystem::path HostPath(const std::string& folder, std::string_view name);

/// The first bytes of a plain file, at most `most`. Raises RuntimeError if it cannot be read.
std::string ReadStart(const std::filesystem::path& file, std::size_t most);

/// All bytes of a plain file. Raises RuntimeError if it cannot be read or is longer than `most` bytes.
std::string ReadWhole(const std::filesystem::path& file, std::size_t most);

/// Puts `bytes` in the place of the file, or of the one that a link of this name leads to: whoever reads it,
/// at whatever moment the machine stops, finds the whole old or the whole new content. Waits for the disk,
/// and a moment for another program that writes the same file. Raises RuntimeError if it cannot be done, or
/// if the file is read-only; the old one stays then.
void WriteWhole(const std::filesystem::path& name, std::string_view bytes);

/// Fields of a text. A field ends at a comma or a line end; blanks before it are skipped. One that begins
/// with a double quote runs to the closing quote.
class FieldReader {
 public:
  explicit FieldReader(std::string_view text) : rest_(text) {}

  bool AtEnd() const { return rest_.empty(); }
  /// Raises RuntimeError at the end of the text.
  std::string_view Next();

 private:
  void SkipBlanks();
  void TakeDelimiter();

  std::string_view rest_;
};

/// The number that a field holds: an optional sign, digits, a point before a fraction; an empty field is 0.
/// Raises RuntimeError for any other text.
Double NumberOf(std::string_view field);

}  // namespace stage
