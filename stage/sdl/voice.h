// One voice for short sounds.
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <string>

struct Mix_Chunk;

namespace stage::sdl {

/// Plays one sound at a time; a new one cuts off the old. Every file is read once. Without a device, or with
/// a file that cannot be played, there is silence. The device is opened at the first sound.
class Voice {
 public:
  Voice() = default;
  Voice(const Voice&) = delete;
  Voice& operator=(const Voice&) = delete;
  ~Voice();

  void Play(const std::filesystem::path& file);

 private:
  struct FreeChunk {
    void operator()(Mix_Chunk* chunk) const;
  };
  enum class Device { kUnopened, kOpen, kMissing };
  void Open();

  Device device_ = Device::kUnopened;
  std::map<std::string, std::unique_ptr<Mix_Chunk, FreeChunk>> sounds_;
};

}  // namespace stage::sdl
