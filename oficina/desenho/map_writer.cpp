#include <algorithm>
#include <numeric>
#include <vector>

#include "oficina/desenho/map.h"
#include "oficina/desenho/map_grammar.h"

namespace desenho {
namespace {

/// A grid that may hold the blocks, in design units. Its rows begin at `left`, or half a cell further right.
struct Grid {
  int gap = 0;
  int across = 0;
  int down = 0;
  int left = 0;
  int top = 0;

  int Shift() const { return across / 2; }
};

/// The cells that a block fills, gaps included.
struct Place {
  bool shifted = false;
  std::size_t row = 0;
  std::size_t column = 0;
  std::size_t rows = 0;
  std::size_t columns = 0;
};

/// The lines of a map below its header, each as far as something stands in it.
class Rows {
 public:
  /// False if a cell is taken already, or the row lies the other way.
  bool Draw(const Place& place, char mark) {
    for (std::size_t row = place.row; row < place.row + place.rows; ++row, mark = '|') {
      if (!Draw(RowAt(row), place, mark)) return false;
    }
    return true;
  }

  std::string Text() const {
    std::string text;
    for (const Row& row : rows_) text += (row.shifted ? ">" : "") + row.cells + '\n';
    return text;
  }

 private:
  struct Row {
    bool shifted = false;
    std::string cells;
  };

  Row& RowAt(std::size_t row) {
    if (row >= rows_.size()) rows_.resize(row + 1);
    return rows_[row];
  }
  static bool Draw(Row& row, const Place& place, char mark) {
    if (row.cells.empty()) row.shifted = place.shifted;
    const std::size_t end = place.column + place.columns;
    if (row.cells.size() < end) row.cells.resize(end, '.');
    const auto first = row.cells.begin() + std::ptrdiff_t(place.column);
    const auto last = row.cells.begin() + std::ptrdiff_t(end);
    if (row.shifted != place.shifted || std::any_of(first, last, [](char cell) { return cell != '.'; }))
      return false;
    std::fill(first, last, '-');
    *first = mark;
    return true;
  }

  std::vector<Row> rows_;
};

bool Blinks(const Desenho& desenho) { return desenho.regra.pisca != 0; }

char MarkOf(int type) { return kMarks[std::size_t(type) - 1]; }

std::string HeaderOf(const Desenho& desenho, std::string_view name, const Grid& grid) {
  const auto pair = [](const std::string& key, int a, int b) {
    return key + std::to_string(a) + ' ' + std::to_string(b) + '\n';
  };
  const Regra& rule = desenho.regra;
  std::string text = "name: " + std::string(name) + '\n';
  if (rule.barrado != 0) text += "barred: " + std::to_string(rule.barrado) + '\n';
  if (Blinks(desenho))
    text += std::string("blink: ") + MarkOf(rule.pisca) + ' ' + std::to_string(rule.intervalo) + '\n';
  return text + pair("cell: ", grid.across, grid.down) + "gap: " + std::to_string(grid.gap) +
         "\ncolumns: " + std::to_string(ColumnsFrom(grid.left, grid.across)) + '\n' +
         pair("origin: ", grid.left, grid.top) + "map:\n";
}

/// Where a block lies in the grid, whose `left` is that of any column; none if its sides are not the grid's.
std::optional<Place> PlaceIn(const Grid& grid, const Block& block) {
  const int left = block.left - grid.gap / 2 - grid.left;
  const int top = block.top - grid.gap / 2 - grid.top;
  const bool shifted = left % grid.across != 0;
  const int from = shifted ? left - grid.Shift() : left;
  if (from % grid.across != 0) return std::nullopt;
  return Place{shifted, std::size_t(top / grid.down), std::size_t(from / grid.across),
               std::size_t((block.height + grid.gap) / grid.down),
               std::size_t((block.width + grid.gap) / grid.across)};
}

/// The map in a grid whose columns are known, but not where they begin. None if the blocks do not fit.
std::optional<std::string> MapIn(Grid grid, const Desenho& desenho, std::string_view name) {
  // Far enough to the left that no column has a number below 0.
  const int column = grid.left;
  int first = column;
  for (const Block& block : desenho.blocos) {
    const int left = block.left - grid.gap / 2;
    first = std::min(first, (left - column) % grid.across == 0 ? left : left - grid.Shift());
  }
  grid.left = first;
  Rows rows;
  for (const Block& block : desenho.blocos) {
    const std::optional<Place> place = PlaceIn(grid, block);
    if (!place || !rows.Draw(*place, MarkOf(block.type))) return std::nullopt;
  }
  return HeaderOf(desenho, name, grid) + rows.Text();
}

/// The map is one, has this name, and draws just these blocks under the same rule.
bool Draws(const std::string& map, const Desenho& desenho, std::string_view name) {
  try {
    const auto [drawn_name, drawn] = LeMapa(map);
    const Regra& rule = drawn.regra;
    return drawn_name == name && rule.barrado == desenho.regra.barrado && rule.pisca == desenho.regra.pisca &&
           (!Blinks(desenho) || rule == desenho.regra) &&
           std::is_permutation(drawn.blocos.begin(), drawn.blocos.end(), desenho.blocos.begin(),
                               desenho.blocos.end());
  } catch (const MapError&) {
    return false;
  }
}

/// The steps of a grid that go into `length`, the longest first.
std::vector<int> StepsInto(int length) {
  std::vector<int> steps;
  for (int step = kLongestStep; step >= kShortestStep; --step) {
    if (length % step == 0) steps.push_back(step);
  }
  return steps;
}

/// Grids with this gap that may hold the blocks, the likeliest first.
std::vector<Grid> GridsOf(const std::vector<Block>& blocks, int gap) {
  const int top = std::min_element(blocks.begin(), blocks.end(), [](const Block& a, const Block& b) {
                    return a.top < b.top;
                  })->top;
  int across = 0;
  int down = 0;
  for (const Block& block : blocks) {
    across = std::gcd(across, block.width + gap);
    down = std::gcd(down, std::gcd(block.height + gap, block.top - top));
  }
  std::vector<int> steps = StepsInto(across);
  std::stable_partition(steps.begin(), steps.end(), [](int step) { return step == kUsualStep; });
  // What does not fit in the highest rows fits in no others.
  const std::vector<int> rows = StepsInto(down);
  if (rows.empty()) return {};
  std::vector<Grid> grids;
  for (const int step : steps) {
    const int left = blocks.front().left - gap / 2;
    // The first block lies in a row of either kind.
    for (const int begin : {left, left - step / 2})
      grids.push_back({gap, step, rows.front(), begin, top - gap / 2});
  }
  return grids;
}

}  // namespace

std::optional<std::string> MapaDe(const Desenho& desenho, std::string_view nome) {
  if (desenho.blocos.empty()) return std::nullopt;
  std::vector<int> gaps(kWidestGap + 1);
  std::iota(gaps.begin(), gaps.end(), 0);
  std::stable_partition(gaps.begin(), gaps.end(), [](int gap) { return gap == kVao; });
  for (const int gap : gaps) {
    for (const Grid& grid : GridsOf(desenho.blocos, gap)) {
      std::optional<std::string> map = MapIn(grid, desenho, nome);
      if (map && Draws(*map, desenho, nome)) return map;
    }
  }
  return std::nullopt;
}

}  // namespace desenho
