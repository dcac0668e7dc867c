// How long a check goes on with more of the same: what is slow is asked less often, and passes.
#pragma once

#include <chrono>

class Patience {
 public:
  explicit Patience(double seconds) : end(Clock::now() + std::chrono::duration<double>(seconds)) {}
  bool over() const { return Clock::now() > end; }

 private:
  using Clock = std::chrono::steady_clock;
  std::chrono::time_point<Clock, std::chrono::duration<double>> end;
};
