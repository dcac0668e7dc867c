// Interleaved samples in the type that a file stores: what is read and written in it, the library
// does not convert.
#pragma once

#include <sndfile.h>

#include <cstddef>
#include <cstdint>
#include <variant>
#include <vector>

#include "host/sound/soundformat.h"

// Whole numbers of 16 bits, or left-aligned in 32.
using StoredSamples = std::variant<std::vector<std::int16_t>, std::vector<std::int32_t>,
                                   std::vector<float>, std::vector<double>>;

class StoredInput {
 public:
  // info: of the file, of one or two channels. frames: that it takes at a time.
  StoredInput(const SF_INFO& info, std::size_t frames);

  std::size_t room() const { return capacity; }  // frames that it takes at a time
  // Takes the next frames in, when none is left. Returns how many the library gave, which may be
  // negative.
  sf_count_t readFrom(SNDFILE* file);
  // Moves up to `count` frames out, mono to both sides, and returns how many. Full scale is 1.
  int take(double* left, double* right, int count);

 private:
  StoredSamples samples;
  std::size_t channels;
  std::size_t capacity;      // frames
  std::size_t position = 0;  // frames
  std::size_t filled = 0;    // frames
};

class StoredOutput {
 public:
  StoredOutput(SampleFormat format, std::size_t frames);

  std::size_t room() const { return capacity - filled; }  // frames
  // Takes frames in, no more than there is room for. Integers are rounded to the nearest step; they
  // and what an encoder gets are held at full scale.
  void add(const double* left, const double* right, std::size_t frames);
  // Moves all out. Returns whether the library took them.
  bool writeTo(SNDFILE* file);

 private:
  StoredSamples samples;
  double fullScale;  // of an integer format, in steps
  double word;       // what a step is in the stored word
  double highest;    // of a floating-point sample, either way
  std::size_t capacity;
  std::size_t filled = 0;  // frames
};
