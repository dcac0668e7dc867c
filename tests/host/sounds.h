// Sound files for the tests, written and read with libsndfile alone.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

struct Sound {
  int rate = 44100;  // Hz
  int channels = 2;
  std::vector<double> samples;  // interleaved, 1 is full scale

  std::size_t frames() const { return samples.size() / static_cast<std::size_t>(channels); }
  double at(std::size_t frame, std::size_t channel) const {
    return samples[frame * static_cast<std::size_t>(channels) + channel];
  }
};

// libFormat: libsndfile's type and subtype, e.g. SF_FORMAT_WAV | SF_FORMAT_FLOAT.
void writeSound(const std::filesystem::path& file, const Sound& sound, int libFormat);
Sound readSound(const std::filesystem::path& file);
int libFormatOf(const std::filesystem::path& file);
// The file's samples as they are stored, left-aligned in 32 bits.
std::vector<std::int32_t> readIntegers(const std::filesystem::path& file);

// The same noise for the same seed, from -1 to just below 1, on the steps of 15 bits: exact in
// float and in every integer format from 16 bits on, and so are halves of sums.
Sound noise(std::size_t frames, int channels, unsigned seed);
// One sample of 0.5 and silence else.
Sound impulse(std::size_t frames, int channels, std::size_t at);
