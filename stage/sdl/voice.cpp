#include "stage/sdl/voice.h"

#include <SDL.h>
#include <SDL_mixer.h>
#include <fcntl.h>
#include <unistd.h>

#include <thread>

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

/// Runs `act` beside the program. Nobody has to wait for its end.
template <class Act>
auto Beside(Act act) {
  std::packaged_task<std::invoke_result_t<Act>()> task(std::move(act));
  auto result = task.get_future();
  std::thread(std::move(task)).detach();
  return result;
}

bool Ended(const auto& future, std::chrono::milliseconds patience) {
  return future.wait_for(patience) == std::future_status::ready;
}

}  // namespace

Voice::Voice() : opening_(Beside(OpenDevice)) {}

Voice::~Voice() {
  constexpr auto kPatience = std::chrono::seconds(1);
  if (opening_.valid() && Ended(opening_, kPatience)) open_ = opening_.get();
  if (!open_) return;
  const auto closed = Beside([sounds = std::move(sounds_)]() mutable {
    Mix_HaltChannel(-1);
    sounds.clear();
    Mix_CloseAudio();
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
  });
  closed.wait_for(kPatience);
}

void Voice::FreeChunk::operator()(Mix_Chunk* chunk) const { Mix_FreeChunk(chunk); }

bool Voice::Ready() {
  if (opening_.valid() && Ended(opening_, {})) open_ = opening_.get();
  return open_;
}

void Voice::Play(const std::filesystem::path& file) {
  if (!Ready()) return;
  const auto [sound, fresh] = sounds_.try_emplace(file.string());
  if (fresh) sound->second.reset(Mix_LoadWAV(file.c_str()));
  if (sound->second) Mix_PlayChannel(kChannel, sound->second.get(), 0);
}

}  // namespace stage::sdl
