#include "stage/sdl/voice.h"

#include <SDL.h>
#include <SDL_mixer.h>
#include <fcntl.h>
#include <unistd.h>

#include <atomic>
#include <system_error>

#include "stage/sdl/beside.h"
#include "stage/text_file.h"

namespace stage::sdl {
namespace {

constexpr int kRate = 44100;
constexpr int kBufferFrames = 512;
constexpr int kChannel = 0;
constexpr auto kPatience = std::chrono::seconds(1);
constexpr std::size_t kMostBytes = 16 << 20;

bool OpenDevice() {
  if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) return false;
  if (Mix_OpenAudio(kRate, AUDIO_S16SYS, 1, kBufferFrames) == 0) return true;
  SDL_QuitSubSystem(SDL_INIT_AUDIO);
  return false;
}

/// Null if the file is no sound.
Mix_Chunk* Load(const std::filesystem::path& file) {
  try {
    const std::string bytes = ReadWhole(file, kMostBytes);
    return Mix_LoadWAV_RW(SDL_RWFromConstMem(bytes.data(), static_cast<int>(bytes.size())), 1);
  } catch (const RuntimeError&) {
    return nullptr;
  }
}

}  // namespace

/// The sound library below SDL complains on stderr about machines without a sound device. What the program
/// itself has to say comes later than that.
class Voice::Quiet {
 public:
  Quiet() : stderr_(fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 0)) {
    const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (stderr_ >= 0) dup2(nowhere, STDERR_FILENO);
    close(nowhere);
  }
  ~Quiet() { End(); }
  Quiet(const Quiet&) = delete;
  Quiet& operator=(const Quiet&) = delete;

  void End() {
    const int saved = stderr_.exchange(-1);
    if (saved < 0) return;
    dup2(saved, STDERR_FILENO);
    close(saved);
  }

 private:
  std::atomic<int> stderr_;
};

Voice::Voice() : quiet_(std::make_shared<Quiet>()), patience_(Clock::now() + kPatience) {
  try {
    opening_ = Beside([quiet = quiet_] {
      const bool open = OpenDevice();
      quiet->End();
      return open;
    });
  } catch (const std::system_error&) {
    quiet_->End();
  }
}

Voice::~Voice() {
  const auto end = Clock::now() + kPatience;
  if (opening_.valid() && opening_.wait_until(end) == std::future_status::ready) open_ = opening_.get();
  quiet_->End();
  if (!open_) return;
  try {
    Beside([sounds = std::move(sounds_)]() mutable {
      Mix_HaltChannel(-1);
      sounds.clear();
      Mix_CloseAudio();
      SDL_QuitSubSystem(SDL_INIT_AUDIO);
    }).wait_until(end);
  } catch (const std::system_error&) {
    return;  // the device closes with the program
  }
}

void Voice::FreeChunk::operator()(Mix_Chunk* chunk) const { Mix_FreeChunk(chunk); }

bool Voice::Ready() {
  if (!opening_.valid()) return open_;
  if (opening_.wait_for(std::chrono::seconds(0)) == std::future_status::ready) {
    open_ = opening_.get();
  } else if (Clock::now() > patience_) {
    quiet_->End();
  }
  return open_;
}

void Voice::Play(const std::filesystem::path& file) {
  if (!Ready()) return;
  const auto [sound, fresh] = sounds_.try_emplace(file.string());
  if (fresh) sound->second.reset(Load(file));
  if (sound->second) Mix_PlayChannel(kChannel, sound->second.get(), 0);
}

}  // namespace stage::sdl
