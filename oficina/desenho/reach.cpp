#include "oficina/desenho/reach.h"

#include <algorithm>

namespace desenho {
namespace {

/// Where the ball overlaps a block, as a rectangle of its own top left corner.
struct Shadow {
  explicit Shadow(const Block& block)
      : left(block.left - Ball::kWidth),
        top(block.top - Ball::kHeight),
        right(block.Right()),
        bottom(block.Bottom()) {}
  int left;
  int top;
  int right;
  int bottom;
};

/// One axis cut at every place where anything begins or ends. Between two cuts nothing changes.
class Axis {
 public:
  Axis(int from, int to) : from_(from), to_(to), cuts_{from, to} {}

  void Cut(int place) {
    if (place > from_ && place < to_) cuts_.push_back(place);
  }
  void Close() {
    std::sort(cuts_.begin(), cuts_.end());
    cuts_.erase(std::unique(cuts_.begin(), cuts_.end()), cuts_.end());
  }
  std::size_t Cells() const { return cuts_.size() - 1; }
  /// The first cell that ends after `place`.
  std::size_t CellAfter(int place) const {
    return std::size_t(std::upper_bound(cuts_.begin() + 1, cuts_.end(), place) - cuts_.begin() - 1);
  }
  /// One above the last cell that begins before `place`.
  std::size_t CellsBefore(int place) const {
    return std::size_t(std::lower_bound(cuts_.begin(), cuts_.end() - 1, place) - cuts_.begin());
  }

 private:
  int from_;
  int to_;
  std::vector<int> cuts_;
};

/// The places of the ball, cut into cells.
class Places {
 public:
  explicit Places(const std::vector<Block>& blocks)
      : across_(Ball::kWidth, Field::kRight - Ball::kWidth), down_(Ball::kHeight, Field::kPaddle) {
    for (const Block& block : blocks) {
      const Shadow shadow(block);
      across_.Cut(shadow.left);
      across_.Cut(shadow.right);
      down_.Cut(shadow.top);
      down_.Cut(shadow.bottom);
    }
    across_.Close();
    down_.Close();
    cells_.assign(across_.Cells() * down_.Cells(), kFree);
    for (const Block& block : blocks) {
      if (block.type == kHard) Close(Shadow(block));
    }
  }

  /// The ball goes wherever it can from the lowest row.
  void Fill() {
    std::vector<std::size_t> open;
    const auto enter = [&](std::size_t cell) {
      if (cells_[cell] != kFree) return;
      cells_[cell] = kReached;
      open.push_back(cell);
    };
    const std::size_t columns = across_.Cells();
    for (std::size_t x = 0; x < columns; ++x) enter(cells_.size() - columns + x);
    while (!open.empty()) {
      const std::size_t cell = open.back();
      open.pop_back();
      const std::size_t x = cell % columns;
      if (x > 0) enter(cell - 1);
      if (x + 1 < columns) enter(cell + 1);
      if (cell >= columns) enter(cell - columns);
      if (cell + columns < cells_.size()) enter(cell + columns);
    }
  }

  /// Edges that meet are a touch.
  bool Touches(const Block& block) const {
    const Shadow shadow(block);
    for (std::size_t y = down_.CellAfter(shadow.top - 1); y < down_.CellsBefore(shadow.bottom + 1); ++y) {
      for (std::size_t x = across_.CellAfter(shadow.left - 1); x < across_.CellsBefore(shadow.right + 1);
           ++x) {
        if (cells_[y * across_.Cells() + x] == kReached) return true;
      }
    }
    return false;
  }

 private:
  enum Cell : char { kFree, kClosed, kReached };

  void Close(const Shadow& shadow) {
    for (std::size_t y = down_.CellAfter(shadow.top); y < down_.CellsBefore(shadow.bottom); ++y) {
      for (std::size_t x = across_.CellAfter(shadow.left); x < across_.CellsBefore(shadow.right); ++x) {
        cells_[y * across_.Cells() + x] = kClosed;
      }
    }
  }

  Axis across_;
  Axis down_;
  std::vector<Cell> cells_;
};

}  // namespace

std::vector<std::size_t> OutOfReach(const std::vector<Block>& blocks) {
  Places places(blocks);
  places.Fill();
  std::vector<std::size_t> out_of_reach;
  for (std::size_t i = 0; i < blocks.size(); ++i) {
    if (blocks[i].type != kHard && !places.Touches(blocks[i])) out_of_reach.push_back(i);
  }
  return out_of_reach;
}

}  // namespace desenho
