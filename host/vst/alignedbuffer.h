// A block of samples at an address that vector instructions of any width like.
#pragma once

#include <algorithm>
#include <cstddef>
#include <new>

// Owns its samples, zero at first. Neither copied nor resized: effects may keep pointers for the
// length of a call only, but pointer tables to it are made once.
template <typename Sample>
class AlignedBuffer {
 public:
  explicit AlignedBuffer(std::size_t count)
      : samples(static_cast<Sample*>(::operator new(count * sizeof(Sample), kAlignment))) {
    std::fill_n(samples, count, Sample{});
  }
  ~AlignedBuffer() { ::operator delete(samples, kAlignment); }
  AlignedBuffer(AlignedBuffer&& other) noexcept : samples(other.samples) {
    other.samples = nullptr;
  }
  AlignedBuffer(const AlignedBuffer&) = delete;
  AlignedBuffer& operator=(const AlignedBuffer&) = delete;
  AlignedBuffer& operator=(AlignedBuffer&&) = delete;

  Sample* data() { return samples; }

 private:
  // bytes: a cache line, and the widest vector register
  static constexpr std::align_val_t kAlignment{64};

  Sample* samples;
};
