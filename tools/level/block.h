// A block of a level, in design units.
#pragma once

namespace level {

struct Block {
  int record = 0;  // of the file that it stands in
  int top = 0;
  int left = 0;
  int height = 0;
  int width = 0;
  int type = 0;

  int Bottom() const { return top + height; }
  int Right() const { return left + width; }
};

}  // namespace level
