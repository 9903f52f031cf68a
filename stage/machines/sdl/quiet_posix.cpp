#include <SDL_stdinc.h>
#include <dlfcn.h>

#include "stage/machines/sdl/quiet.h"

namespace stage::sdl {
namespace {

// NOLINTNEXTLINE(cert-dcl50-cpp): ALSA's library wants it so
void SayNothing(const char* /*file*/, int /*line*/, const char* /*function*/, int /*error*/,
                const char* /*format*/, ...) {}

}  // namespace

void SilenceSoundLibraries() {
  SDL_setenv("PULSE_LOG_SYSLOG", "1", 0);
  using SetHandler = int (*)(decltype(&SayNothing));
  void* const alsa = dlopen("libasound.so.2", RTLD_LAZY);
  if (alsa == nullptr) return;
  const auto set = reinterpret_cast<SetHandler>(dlsym(alsa, "snd_lib_error_set_handler"));
  if (set != nullptr) set(&SayNothing);
}

}  // namespace stage::sdl
