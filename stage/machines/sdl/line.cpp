#include "stage/machines/sdl/line.h"

#include <poll.h>

#include <ctime>

namespace stage::sdl {

bool Readable(int file, Moment longest) {
  const auto seconds = std::chrono::floor<std::chrono::seconds>(longest);
  const std::chrono::nanoseconds rest = longest - seconds;
  const timespec time{static_cast<std::time_t>(seconds.count()), static_cast<long>(rest.count())};
  pollfd line{file, POLLIN, 0};
  return ppoll(&line, 1, &time, nullptr) != 0;
}

}  // namespace stage::sdl
