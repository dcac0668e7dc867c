// Waits for the clock to come to a frame.
#include "host/play/pace.h"

#include <algorithm>
#include <thread>

namespace {

constexpr std::chrono::milliseconds kLongestSleep(20);  // until whoever waits can be stopped

}  // namespace

Pace::Pace(double framesPerSecond, Beginning asked)
    : rate(framesPerSecond), beginning(Clock::now()) {
  if (asked == Beginning::behind) beginning -= kMostBehind;
}

bool Pace::reached(std::int64_t count) {
  const std::chrono::duration<double> length(static_cast<double>(count) / rate);
  const auto due = beginning + std::chrono::duration_cast<Clock::duration>(length);
  const auto now = Clock::now();
  if (now - due > kMostBehind) beginning += now - due - kMostBehind;
  if (now >= due) return true;
  std::this_thread::sleep_for(std::min<Clock::duration>(due - now, kLongestSleep));
  return Clock::now() >= due;
}
