// Finds what is wrong with a level before a player does.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace desenho {

/// Records and fields count from 1; a field of 0 is the whole record, a record of 0 the whole file.
struct Fault {
  int record = 0;
  int field = 0;
  std::string why;

  /// "record R, field F: why", as far as it names them.
  std::string Text() const;
};

struct Verdict {
  int blocks = 0;
  int hard = 0;
  int unseen = 0;
  /// Hard blocks with no other hard block at their side or corner: further from each of them than the widest
  /// gap of a drawing.
  int hard_alone = 0;
  /// The first one, if there is any. The counts are those of the blocks before it.
  std::optional<Fault> fault;

  /// "ok: N blocks, ..." or the fault.
  std::string Text() const;
};

/// `text` is the content of a level file.
Verdict Check(std::string_view text);

}  // namespace desenho
