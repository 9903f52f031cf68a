#include "stage/sdl/voice.h"

#include <SDL.h>
#include <SDL_mixer.h>
#include <dlfcn.h>

#include <chrono>
#include <system_error>
#include <utility>

#include "stage/sdl/beside.h"
#include "stage/text_file.h"

namespace stage::sdl {
namespace {

constexpr int kRate = 44100;
constexpr int kBufferFrames = 512;
constexpr auto kPatience = std::chrono::seconds(1);
constexpr std::size_t kMostBytes = 16 << 20;

// NOLINTNEXTLINE(cert-dcl50-cpp): ALSA's library wants it so
void SayNothing(const char* /*file*/, int /*line*/, const char* /*function*/, int /*error*/,
                const char* /*format*/, ...) {}

/// A machine without a sound device is no error: the libraries below SDL are to keep their complaints to
/// themselves, or to tell them the system's log.
void SilenceLibraries() {
  SDL_setenv("PULSE_LOG_SYSLOG", "1", 0);
  using SetHandler = int (*)(decltype(&SayNothing));
  void* const alsa = dlopen("libasound.so.2", RTLD_LAZY);
  if (alsa == nullptr) return;
  const auto set = reinterpret_cast<SetHandler>(dlsym(alsa, "snd_lib_error_set_handler"));
  if (set != nullptr) set(&SayNothing);
}

bool OpenDevice() {
  if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) return false;
  if (Mix_OpenAudioDevice(kRate, AUDIO_S16SYS, 1, kBufferFrames, nullptr, 0) == 0) return true;
  SDL_QuitSubSystem(SDL_INIT_AUDIO);
  return false;
}

void Fill(void* playback, Uint8* bytes, int size) {
  static_cast<Playback*>(playback)->Fill(
      {reinterpret_cast<std::int16_t*>(bytes), static_cast<std::size_t>(size) / sizeof(std::int16_t)});
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

Voice::Voice() {
  SilenceLibraries();
  try {
    opening_ = Beside(OpenDevice);
  } catch (const std::system_error&) {
    open_ = false;
  }
}

Voice::~Voice() { Close(); }

bool Voice::Close() {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  if (auto opening = std::exchange(opening_, {}); opening.valid()) {
    if (opening.wait_until(end) != std::future_status::ready) return false;
    open_ = opening.get();
  }
  if (!std::exchange(open_, false)) return true;
  Mix_HookMusic(nullptr, nullptr);
  try {
    const auto closing = Beside([sounds = std::move(sounds_)]() mutable {
      sounds.clear();
      Mix_CloseAudio();
      SDL_QuitSubSystem(SDL_INIT_AUDIO);
    });
    return closing.wait_until(end) == std::future_status::ready;
  } catch (const std::system_error&) {
    return true;  // the device closes with the program
  }
}

void Voice::FreeChunk::operator()(Mix_Chunk* chunk) const { Mix_FreeChunk(chunk); }

bool Voice::Ready() {
  if (opening_.valid() && opening_.wait_for(std::chrono::seconds(0)) == std::future_status::ready) {
    open_ = opening_.get();
    // The mixer's own channels stop and fade by whole buffers, which clicks.
    if (open_) Mix_HookMusic(Fill, &playback_);
  }
  return open_;
}

void Voice::Play(const std::filesystem::path& file) {
  if (!Ready()) return;
  const auto [sound, fresh] = sounds_.try_emplace(file.string());
  if (fresh) sound->second.reset(Load(file));
  if (!sound->second) return;
  const Mix_Chunk& chunk = *sound->second;
  playback_.Start({reinterpret_cast<const std::int16_t*>(chunk.abuf), chunk.alen / sizeof(std::int16_t)});
}

}  // namespace stage::sdl
