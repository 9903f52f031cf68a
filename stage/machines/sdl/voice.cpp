#include "stage/machines/sdl/voice.h"

#include <SDL.h>
#include <SDL_mixer.h>

#include <chrono>
#include <system_error>
#include <utility>

#include "stage/files/path_text.h"
#include "stage/files/text_file.h"
#include "stage/machines/sdl/beside.h"
#include "stage/machines/sdl/quiet.h"

namespace stage::sdl {
namespace {

constexpr int kRate = 44100;
constexpr int kBufferFrames = 512;
constexpr auto kPatience = std::chrono::seconds(1);
constexpr std::size_t kMostBytes = 16 << 20;

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

void CloseDevice(Voice::Sounds sounds) {
  sounds.clear();
  Mix_CloseAudio();
  SDL_QuitSubSystem(SDL_INIT_AUDIO);
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
  SilenceSoundLibraries();
  std::promise<bool> opened;
  std::promise<Sounds> leave;
  auto opening = opened.get_future();
  // Some systems' devices belong to the thread that opens them, and live no longer than it does.
  auto stay = [opened = std::move(opened), left = leave.get_future()]() mutable {
    const bool open = OpenDevice();
    opened.set_value(open);
    left.wait();
    if (open) CloseDevice(left.get());
  };
  try {
    closing_ = Beside(std::move(stay));
    opening_ = std::move(opening);
    leave_ = std::move(leave);
  } catch (const std::system_error&) {
    open_ = false;
  }
}

Voice::~Voice() { Close(); }

bool Voice::Close() {
  if (!closing_.valid()) return true;
  if (std::exchange(open_, false)) Mix_HookMusic(nullptr, nullptr);
  leave_.set_value(std::move(sounds_));
  return std::exchange(closing_, {}).wait_for(kPatience) == std::future_status::ready;
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
  const auto [sound, fresh] = sounds_.try_emplace(TextOf(file));
  if (fresh) sound->second.reset(Load(file));
  if (!sound->second) return;
  const Mix_Chunk& chunk = *sound->second;
  playback_.Start({reinterpret_cast<const std::int16_t*>(chunk.abuf), chunk.alen / sizeof(std::int16_t)});
}

}  // namespace stage::sdl
