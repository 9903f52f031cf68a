// The line to the desktop of Windows. SDL itself waits there for the system's coarse timer.
#pragma once

#include "stage/machines/sdl/line.h"

namespace stage::sdl {

class WindowsLine : public Line {
 public:
  WindowsLine();
  ~WindowsLine() override;
  WindowsLine(const WindowsLine&) = delete;
  WindowsLine& operator=(const WindowsLine&) = delete;

  bool InputComes(Moment longest) override;

 private:
  void* timer_;
};

}  // namespace stage::sdl
