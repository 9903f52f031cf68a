// One voice for short sounds.
#pragma once

#include <chrono>
#include <filesystem>
#include <future>
#include <map>
#include <memory>
#include <string>

struct Mix_Chunk;

namespace stage::sdl {

/// Plays one sound at a time; a new one cuts off the old. Every file is read once. Without a device, or with
/// a file that cannot be played, there is silence. Devices can take their time to open and may hang when they
/// are closed, so both is done beside the program, and its end does not wait for more than a moment.
class Voice {
 public:
  Voice();
  Voice(const Voice&) = delete;
  Voice& operator=(const Voice&) = delete;
  ~Voice();

  void Play(const std::filesystem::path& file);

 private:
  struct FreeChunk {
    void operator()(Mix_Chunk* chunk) const;
  };
  class Quiet;
  using Clock = std::chrono::steady_clock;

  bool Ready();

  std::shared_ptr<Quiet> quiet_;
  Clock::time_point patience_;  // when nobody waits any longer for the device to open
  std::future<bool> opening_;
  bool open_ = false;
  std::map<std::string, std::unique_ptr<Mix_Chunk, FreeChunk>> sounds_;
};

}  // namespace stage::sdl
