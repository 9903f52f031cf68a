#include "oficina/desenho/map.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <set>
#include <system_error>
#include <utility>
#include <vector>

#include "oficina/desenho/map_grammar.h"

namespace desenho {
namespace {

constexpr std::size_t kMostBytes = 65536;  // of map text
constexpr std::size_t kLongestName = 60;
constexpr int kLatestBlink = 60000;  // ms

struct Point {
  int x = 0;
  int y = 0;
};

struct Header {
  std::string name;
  Regra rule;
  Point cell{kUsualStep, kAlturaNormal + kVao};
  int gap = kVao;
  std::optional<int> columns;
  std::optional<Point> origin;
};

// The grid once every default is settled, in design units.
struct Grid {
  Point origin;
  Point cell;
  int gap = 0;
  int columns = 0;
};

// A character of a row with the '-' that follow it.
struct Run {
  char mark = '.';
  int column = 0;
  int cells = 1;
};

std::string_view Trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

// Hands out the lines of the map one by one and remembers where it stands, for the error messages.
class Lines {
 public:
  explicit Lines(std::string_view text) : rest_(text) {}

  std::optional<std::string_view> Next() {
    if (rest_.empty()) return std::nullopt;
    ++number_;
    const std::size_t end = rest_.find('\n');
    std::string_view line = rest_.substr(0, end);
    rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
  }

  std::size_t Number() const { return std::max<std::size_t>(number_, 1); }

  [[noreturn]] void Fail(const std::string& why) const { throw MapError(Number(), why); }

 private:
  std::string_view rest_;
  std::size_t number_ = 0;
};

int TypeOf(char mark, const Lines& lines) {
  const std::size_t place = kMarks.find(mark);
  if (place == std::string_view::npos) lines.Fail("no block is drawn as '" + std::string(1, mark) + "'");
  return int(place) + 1;
}

int WholeNumber(std::string_view word, int least, int most, const Lines& lines) {
  int value = 0;
  const char* end = word.data() + word.size();
  const auto [stop, error] = std::from_chars(word.data(), end, value);
  if (error != std::errc() || stop != end || value < least || value > most) {
    lines.Fail("'" + std::string(word) + "' is not a whole number from " + std::to_string(least) + " to " +
               std::to_string(most));
  }
  return value;
}

// The two words of a value such as "490 260".
std::array<std::string_view, 2> TwoWords(std::string_view value, const Lines& lines) {
  const std::size_t space = value.find_first_of(" \t");
  if (space == std::string_view::npos) lines.Fail("two values are needed here, a blank between them");
  return {value.substr(0, space), Trimmed(value.substr(space))};
}

std::string Name(std::string_view value, const Lines& lines) {
  if (value.empty() || value.size() > kLongestName) {
    lines.Fail("the name must have 1 to " + std::to_string(kLongestName) + " bytes");
  }
  return std::string(value);
}

int BarredBonus(std::string_view value, const Lines& lines) {
  const int code = WholeNumber(value, 0, kAllBonuses, lines);
  if (code > kLastBonus && code != kAllBonuses) lines.Fail("there is no bonus " + std::to_string(code));
  return code;
}

void ReadHeaderLine(std::string_view key, std::string_view value, const Lines& lines, Header& header) {
  if (key == "name") {
    header.name = Name(value, lines);
  } else if (key == "barred") {
    header.rule.barrado = BarredBonus(value, lines);
  } else if (key == "blink") {
    const auto [mark, period] = TwoWords(value, lines);
    if (mark.size() != 1) lines.Fail("one character tells which blocks blink");
    header.rule.pisca = TypeOf(mark.front(), lines);
    header.rule.intervalo = WholeNumber(period, Regra::kMenorIntervalo, kLatestBlink, lines);
  } else if (key == "cell") {
    const auto [across, down] = TwoWords(value, lines);
    header.cell.x = WholeNumber(across, kShortestStep, kLongestStep, lines);
    header.cell.y = WholeNumber(down, kShortestStep, kLongestStep, lines);
  } else if (key == "gap") {
    header.gap = WholeNumber(value, 0, kWidestGap, lines);
  } else if (key == "columns") {
    header.columns = WholeNumber(value, 1, kMostColumns, lines);
  } else if (key == "origin") {
    const auto [x, y] = TwoWords(value, lines);
    header.origin = Point{WholeNumber(x, 0, kMapRight, lines), WholeNumber(y, 0, kMapBottom, lines)};
  } else {
    lines.Fail("unknown header '" + std::string(key) + "'");
  }
}

Header ReadHeader(Lines& lines) {
  Header header;
  std::set<std::string_view> seen;
  while (const auto line = lines.Next()) {
    if (Trimmed(*line).empty()) continue;
    const std::size_t colon = line->find(':');
    if (colon == std::string_view::npos) lines.Fail("a header line reads 'key: value'");
    const std::string_view key = Trimmed(line->substr(0, colon));
    if (key == "map") {
      if (header.name.empty()) lines.Fail("the level has no name");
      return header;
    }
    if (!seen.insert(key).second) lines.Fail("'" + std::string(key) + "' was given before");
    ReadHeaderLine(key, Trimmed(line->substr(colon + 1)), lines, header);
  }
  lines.Fail("the line 'map:' is missing");
}

Grid GridOf(const Header& header) {
  const Point cell = header.cell;
  const int columns = header.columns.value_or(ColumnsFrom(kMapLeft, cell.x));
  const Point centred{CentredLeft(columns, cell.x), kFirstRow};
  return {header.origin.value_or(centred), cell, header.gap, columns};
}

std::vector<Run> RunsOf(std::string_view row, const Grid& grid, const Lines& lines) {
  row = row.substr(0, row.find_last_not_of(". ") + 1);
  if (row.size() > static_cast<std::size_t>(grid.columns)) {
    lines.Fail("the row is wider than " + std::to_string(grid.columns) + " columns");
  }
  std::vector<Run> runs;
  for (int column = 0; column < static_cast<int>(row.size()); ++column) {
    const char mark = row[static_cast<std::size_t>(column)];
    if (mark == '.' || mark == ' ') continue;
    if (mark != '-') {
      runs.push_back({mark, column, 1});
    } else if (runs.empty() || runs.back().column + runs.back().cells != column) {
      lines.Fail("'-' has no block on its left");
    } else {
      ++runs.back().cells;
    }
  }
  return runs;
}

Block BlockOf(const Run& run, Point corner, const Grid& grid, const Lines& lines) {
  const Block block{.top = corner.y + grid.gap / 2,
                    .left = corner.x + run.column * grid.cell.x + grid.gap / 2,
                    .height = grid.cell.y - grid.gap,
                    .width = run.cells * grid.cell.x - grid.gap,
                    .type = run.mark == '|' ? 0 : TypeOf(run.mark, lines)};
  if (block.left < kMapLeft || block.Right() > kMapRight || block.top < kMapTop ||
      block.Bottom() > kMapBottom) {
    lines.Fail("a block leaves the field");
  }
  return block;
}

// Lays a row's blocks down. A '|' run finds the block it continues by its sides and by where that one ends.
void AddRow(const std::vector<Run>& runs, Point corner, const Grid& grid, const Lines& lines,
            std::vector<Block>& blocks) {
  for (const Run& run : runs) {
    const Block block = BlockOf(run, corner, grid, lines);
    if (run.mark != '|') {
      if (int(blocks.size()) == kMostBlocks)
        lines.Fail("more than " + std::to_string(kMostBlocks) + " blocks");
      blocks.push_back(block);
      continue;
    }
    const auto above = std::find_if(blocks.begin(), blocks.end(), [&](const Block& other) {
      return other.Bottom() + grid.gap == block.top && other.left == block.left && other.width == block.width;
    });
    if (above == blocks.end()) lines.Fail("'|' has no block of its own width above");
    above->height += grid.cell.y;
  }
}

std::vector<Block> ReadBlocks(Lines& lines, const Grid& grid) {
  std::vector<Block> blocks;
  Point corner = grid.origin;
  while (auto row = lines.Next()) {
    corner.x = grid.origin.x;
    if (row->starts_with('>')) {
      row->remove_prefix(1);
      corner.x += grid.cell.x / 2;
    }
    AddRow(RunsOf(*row, grid, lines), corner, grid, lines, blocks);
    corner.y += grid.cell.y;
  }
  const bool can_end =
      std::any_of(blocks.begin(), blocks.end(), [](const Block& block) { return block.type != kHard; });
  if (!can_end) lines.Fail("the level needs a block that a plain ball can remove");
  return blocks;
}

}  // namespace

MapError::MapError(std::size_t line, const std::string& why)
    : std::runtime_error("line " + std::to_string(line) + ": " + why) {}

Mapa LeMapa(std::string_view text) {
  Lines lines(text);
  if (text.size() > kMostBytes) lines.Fail("the map is longer than " + std::to_string(kMostBytes) + " bytes");
  const Header header = ReadHeader(lines);
  std::vector<Block> blocks = ReadBlocks(lines, GridOf(header));
  std::stable_sort(blocks.begin(), blocks.end(),
                   [](const Block& a, const Block& b) { return a.Bottom() < b.Bottom(); });
  return {header.name, {header.rule, std::move(blocks)}};
}

std::string SavFromMap(std::string_view text) { return SavDe(LeMapa(text).desenho); }

}  // namespace desenho
