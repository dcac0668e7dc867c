// How wide a stereo signal is.
#pragma once

#include <array>
#include <cstddef>

// The side against the mid, over the whole signal. The result does not depend on the blocks. One
// thread.
class ImageWidth {
 public:
  void add(const double* left, const double* right, int frames);

  // The level of the side as a factor of the mid's: 0 is mono, infinite where there is no mid; 0
  // for silence.
  double sideToMid() const;

 private:
  // Sums of squares, each of every fourth frame, so that no addition waits for the one before.
  static constexpr std::size_t kSums = 4;
  using Sums = std::array<double, kSums>;

  void addFrame(double left, double right);

  Sums mid{};
  Sums side{};
  std::size_t next = 0;  // of the sums
};

// Whether a listener's meter would show the difference: 0.1 dB of side to mid.
bool isNarrower(double sideToMid, double before);
