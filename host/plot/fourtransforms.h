// The power spectra of four signals at a time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

// One float of each of four signals: the processor works on them at once, and no value has to move
// to another place.
using Four = float __attribute__((vector_size(16)));

// A Fourier transform of real signals of one length, by radix 4.
class FourTransforms {
 public:
  // Two frames of each signal in order, and a complex value of each in the course of the transform.
  struct Pair {
    Four re, im;
  };

  // length: of each signal, a power of two from 8 on.
  explicit FourTransforms(std::size_t length);

  // signals: length / 2 pairs, which are used up. Adds |X|^2 of all four to each of the
  // length / 2 + 1 sums, which are in the transform's own order. Any thread, several at once.
  void addPowers(Pair* signals, double* sums) const;
  // The same by frequency, from 0 to half the sample rate.
  std::vector<double> sorted(const std::vector<double>& sums) const;

 private:
  struct Factor {
    float re, im;
  };
  struct Twiddles {
    Factor first, second, third;
  };

  static Pair product(const Pair& value, const Factor& by);
  static void transform(Pair* values, std::size_t count, const Twiddles* twiddles);

  // A bin and its mirror image, half a length minus the bin.
  struct Mirror {
    std::uint32_t place, mirror;  // where the transform leaves both
    Factor turn;                  // e^(-2 pi i bin / length)
  };

  std::size_t half;                // pairs
  std::vector<Twiddles> twiddles;  // of the longest pass, the next one, and so on
  std::vector<std::size_t> bins;   // by place
  std::vector<Mirror> mirrors;     // by place; the middle is its own
};
