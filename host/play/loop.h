// A sound file in memory that is read round and round.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

#include "host/sound/soundreader.h"

// Made on any thread; then read on one, which allocates and waits for nothing.
class Loop {
 public:
  // Reads the whole file, of a damaged one what can be read if it is to be salvaged. Throws
  // Failure as SoundReader, and where it holds what is no number.
  explicit Loop(const std::filesystem::path& file, bool salvage = false);

  int channels() const { return right.empty() ? 1 : 2; }
  int sampleRate() const { return rate; }              // Hz
  const std::string& damage() const { return found; }  // as SoundReader
  std::size_t frames() const { return left.size(); }

  // The next `count` frames; after the last one comes the first. Mono is the same on both sides.
  void read(double* toLeft, double* toRight, int count);

 private:
  void readAll(SoundReader& reader, const std::filesystem::path& file);

  int rate = 0;
  std::string found;         // damage
  std::vector<float> left;   // exact for up to 24 bits; half of what doubles would take
  std::vector<float> right;  // none for mono
  std::size_t position = 0;  // the next frame
};
