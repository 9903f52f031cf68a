// The pause screen: a window in the shape of its word over the frozen field.
#pragma once

#include "core/programa.h"

namespace korvane {

class pause : public stage::Form {
 public:
  explicit pause(Programa& dono);

  void Form_Load() override;
  void Form_KeyDown(Integer KeyCode, Integer Shift) override;
};

}  // namespace korvane
