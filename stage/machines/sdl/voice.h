// One voice for short sounds.
#pragma once

#include <filesystem>
#include <future>
#include <map>
#include <memory>
#include <string>

#include "stage/machines/playback.h"

struct Mix_Chunk;

namespace stage::sdl {

/// Plays one sound at a time; a new one cuts off the old as Playback does. Every file is read once. Without a
/// device, or with a file that cannot be played, there is silence. Devices can take their time to open and
/// may hang when they are closed, so both is done beside the program, and its end does not wait for more than
/// a moment.
class Voice {
 public:
  Voice();
  Voice(const Voice&) = delete;
  Voice& operator=(const Voice&) = delete;
  ~Voice();

  /// Falls silent for good. False if the device hangs; its library may then still be at work.
  bool Close();
  void Play(const std::filesystem::path& file);

  struct FreeChunk {
    void operator()(Mix_Chunk* chunk) const;
  };
  /// By the names of their files.
  using Sounds = std::map<std::string, std::unique_ptr<Mix_Chunk, FreeChunk>>;

 private:
  bool Ready();

  std::future<bool> opening_;
  bool open_ = false;
  Playback playback_;
  Sounds sounds_;
  std::promise<Sounds> leave_;  // hands them to the device's own thread, which closes it then
  std::future<void> closing_;
};

}  // namespace stage::sdl
