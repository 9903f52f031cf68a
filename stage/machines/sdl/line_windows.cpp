#include "stage/machines/sdl/line_windows.h"

#include <windows.h>

#include <algorithm>

namespace stage::sdl {
namespace {

constexpr DWORD kHighResolution = 2;  // CREATE_WAITABLE_TIMER_HIGH_RESOLUTION, which older headers lack

}  // namespace

WindowsLine::WindowsLine()
    : timer_(CreateWaitableTimerExW(nullptr, nullptr, kHighResolution, TIMER_ALL_ACCESS)) {
  // Before Windows 10 1803 there is the plain one: as fine as the system's clock, which SDL sets to 1 ms.
  if (timer_ == nullptr) timer_ = CreateWaitableTimerW(nullptr, FALSE, nullptr);
}

WindowsLine::~WindowsLine() { CloseHandle(timer_); }

bool WindowsLine::InputComes(Moment longest) {
  constexpr LONGLONG kTicksInMicrosecond = 10;
  LARGE_INTEGER due{};
  due.QuadPart = -std::max<LONGLONG>(longest.count() * kTicksInMicrosecond, 1);  // from now on
  SetWaitableTimer(timer_, &due, 0, nullptr, nullptr, FALSE);
  return MsgWaitForMultipleObjectsEx(1, &timer_, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE) != WAIT_OBJECT_0;
}

}  // namespace stage::sdl
