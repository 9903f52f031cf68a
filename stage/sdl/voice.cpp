#include "stage/sdl/voice.h"

#include <SDL.h>
#include <SDL_mixer.h>

namespace stage::sdl {
namespace {

constexpr int kRate = 44100;
constexpr int kBufferFrames = 512;
constexpr int kChannel = 0;

}  // namespace

void Voice::FreeChunk::operator()(Mix_Chunk* chunk) const { Mix_FreeChunk(chunk); }

Voice::~Voice() {
  if (device_ != Device::kOpen) return;
  Mix_HaltChannel(-1);
  sounds_.clear();
  Mix_CloseAudio();
}

void Voice::Open() {
  const bool open =
      SDL_InitSubSystem(SDL_INIT_AUDIO) == 0 && Mix_OpenAudio(kRate, AUDIO_S16SYS, 1, kBufferFrames) == 0;
  device_ = open ? Device::kOpen : Device::kMissing;
}

void Voice::Play(const std::filesystem::path& file) {
  if (device_ == Device::kUnopened) Open();
  if (device_ == Device::kMissing) return;
  const auto [sound, fresh] = sounds_.try_emplace(file.string());
  if (fresh) sound->second.reset(Mix_LoadWAV(file.c_str()));
  if (sound->second) Mix_PlayChannel(kChannel, sound->second.get(), 0);
}

}  // namespace stage::sdl
