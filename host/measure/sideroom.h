// How much of the side signal fits into full scale.
#pragma once

// Of what is written, at its level. One thread.
class SideRoom {
 public:
  void add(const double* left, const double* right, int frames);

  // The largest factor for the side with which every sample is within full scale: 1 where all are
  // already, 0 where the mid alone is beyond it.
  double factor() const { return most; }

 private:
  void narrowFor(double left, double right);

  double most = 1.0;
};
