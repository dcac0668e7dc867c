// How far the mono fold of what an effect put out is from the fold of what it was given.
#pragma once

#include <cstddef>
#include <vector>

// Before and after, frame by frame; "after" may lag behind by the effect's latency and be longer by
// its tail.
class FoldError {
 public:
  // gain: of what comes after, a factor; the fold is expected to have it too.
  explicit FoldError(double afterGain = 1.0) : gain(afterGain) {}

  // mono: the same for both. After: what belongs to the frames before, in order; frames beyond them
  // belong to silence.
  void addBefore(const double* left, const double* right, int frames);
  void addAfter(const double* left, const double* right, int frames);

  // Largest |(L+R)/2 after - mid before, with the gain|, 1 is full scale.
  double largest() const { return largestError; }

 private:
  double gain;
  std::vector<double> mids;  // before, waiting for their frames after
  std::size_t nextMid = 0;
  double largestError = 0.0;
};
