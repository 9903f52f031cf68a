// Samples in memory, how they are mixed, and the file that they end in.
#pragma once

#include <cstddef>
#include <filesystem>
#include <vector>

namespace sons {

inline constexpr int kSampleRate = 44100;  // samples per second

/// A sound in the making: one channel, any scale until Finish() brings it to its final loudness.
using Wave = std::vector<double>;

/// One ingredient of a mix, starting `at` seconds into it.
struct Layer {
  Wave wave;
  double gain = 1.0;
  double at = 0.0;
};

Wave Silence(double seconds);

/// Time of a sample, in seconds from the start.
double TimeOf(std::size_t index);

/// From 0 to 1 as x does, along half a cosine: flat at both ends, so the joint with silence is inaudible.
double SmoothStep(double x);

/// As long as its longest layer.
Wave Mix(const std::vector<Layer>& layers);

/// Makes a sound ready to play: no offset, no click at either end, as loud as told (as Loudness() measures
/// it). Raises std::runtime_error for silence, and when peaks would come nearer to full scale than 3 dB; such
/// a sound wants a rounder recipe.
Wave Finish(Wave wave, double loudness);

/// Writes 16 bit mono RIFF; raises std::runtime_error when the file cannot be written whole.
void WriteWav(const Wave& wave, const std::filesystem::path& path);

}  // namespace sons
