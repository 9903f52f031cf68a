#include "stage/sdl/voice.h"

#include <SDL.h>
#include <SDL_mixer.h>
#include <fcntl.h>
#include <unistd.h>

namespace stage::sdl {
namespace {

constexpr int kRate = 44100;
constexpr int kBufferFrames = 512;
constexpr int kChannel = 0;

/// The sound library below SDL complains on stderr about machines without a sound device.
class Quiet {
 public:
  Quiet() : stderr_(dup(STDERR_FILENO)) {
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    dup2(nowhere, STDERR_FILENO);
    close(nowhere);
  }
  ~Quiet() {
    dup2(stderr_, STDERR_FILENO);
    close(stderr_);
  }
  Quiet(const Quiet&) = delete;
  Quiet& operator=(const Quiet&) = delete;

 private:
  int stderr_;
};

bool OpenDevice() {
  const Quiet quiet;
  if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) return false;
  if (Mix_OpenAudio(kRate, AUDIO_S16SYS, 1, kBufferFrames) == 0) return true;
  SDL_QuitSubSystem(SDL_INIT_AUDIO);
  return false;
}

}  // namespace

Voice::Voice() : opening_(std::async(std::launch::async, OpenDevice)) {}

Voice::~Voice() {
  if (opening_.valid()) open_ = opening_.get();
  if (!open_) return;
  Mix_HaltChannel(-1);
  sounds_.clear();
  Mix_CloseAudio();
}

void Voice::FreeChunk::operator()(Mix_Chunk* chunk) const { Mix_FreeChunk(chunk); }

bool Voice::Ready() {
  if (opening_.valid() && opening_.wait_for(std::chrono::seconds(0)) == std::future_status::ready) {
    open_ = opening_.get();
  }
  return open_;
}

void Voice::Play(const std::filesystem::path& file) {
  if (!Ready()) return;
  const auto [sound, fresh] = sounds_.try_emplace(file.string());
  if (fresh) sound->second.reset(Mix_LoadWAV(file.c_str()));
  if (sound->second) Mix_PlayChannel(kChannel, sound->second.get(), 0);
}

}  // namespace stage::sdl
