// Frames of mid and side that another thread looks at, in order, while the caller goes on.
#pragma once

#include <functional>
#include <future>
#include <vector>

// One thread calls. Memory does not grow with the frames: where the caller is too far ahead it
// waits.
class FramesAside {
 public:
  using Look = std::function<void(const float* mids, const float* sides, int frames)>;

  // look: gets pieces of any size. What it throws comes out of one of the next calls.
  explicit FramesAside(Look look);
  // Waits for what is being looked at; the rest is looked at by nobody.
  ~FramesAside() = default;
  FramesAside(const FramesAside&) = delete;
  FramesAside& operator=(const FramesAside&) = delete;

  void add(const double* mids, const double* sides, int frames);
  // Returns when all frames have been looked at.
  void finish();

 private:
  struct Frames {
    std::vector<float> mids;
    std::vector<float> sides;
  };

  void wait();
  void handOver();

  Look look;
  Frames coming;
  Frames seen;  // the other thread's while it runs
  std::future<void> running;
};
