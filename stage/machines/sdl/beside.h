// Work that the program does not wait for.
#pragma once

#include <future>
#include <thread>

namespace stage::sdl {

/// Runs `act` on a thread of its own, also beyond the end of whoever asked. Raises std::system_error.
template <class Act>
auto Beside(Act act) {
  std::packaged_task<std::invoke_result_t<Act>()> task(std::move(act));
  auto result = task.get_future();
  std::thread(std::move(task)).detach();
  return result;
}

}  // namespace stage::sdl
