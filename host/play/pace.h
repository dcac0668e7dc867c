// Waits for the clock to come to a frame.
#pragma once

#include <chrono>
#include <cstdint>

// One thread, which it holds back by sleeping.
class Pace {
 public:
  // What may be made up for at once: a machine that was busy is caught up with, and a computer that
  // slept is not.
  static constexpr std::chrono::milliseconds kMostBehind{250};

  // Begins now, or kMostBehind ago, so that as much may be done at once.
  enum class Beginning { now, behind };
  explicit Pace(double framesPerSecond, Beginning beginning = Beginning::now);

  // Sleeps until the end of frame `count` since the beginning, 20 ms at most. Returns whether it
  // has come.
  bool reached(std::int64_t count);

 private:
  using Clock = std::chrono::steady_clock;

  double rate;
  Clock::time_point beginning;
};
