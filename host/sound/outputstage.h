// Between the effect and the file: takes the latency away and decides where the output ends.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

struct TailPlan {
  bool automatic = false;   // until the effect is silent
  std::int64_t frames = 0;  // of tail; with `automatic` the most that may come
  // with `automatic`: silence that counts as the end, longer than any gap inside a tail
  std::int64_t quietFrames = 0;
};

// Gets what the effect puts out, in blocks of any size, and hands on exactly the frames that belong
// into the file: as many as there was input, beginning after the latency, and then the tail. The
// result does not depend on the blocks, but for a latency that changes: it counts from the first
// frame of the block in which the effect named it.
class OutputStage {
 public:
  using Sink = std::function<void(const double* left, const double* right, int frames)>;

  // Below this, half a step of 24 bits, a tail counts as silent.
  static constexpr double kSilence = 1.0 / (1 << 24);

  // latency: frames by which the effect is late.
  OutputStage(Sink sink, std::int64_t latency, const TailPlan& tail);

  // Called before the block from which the effect is late by so many frames. More than before: so
  // many frames repeat what was handed on and are dropped. Fewer: what the effect has skipped
  // stays silent.
  void setLatency(std::int64_t latency);
  void accept(const double* left, const double* right, int frames);
  // No more input comes; from now on the effect is fed silence until complete().
  void endOfInput(std::int64_t inputFrames);
  bool complete() const { return ended && bodyLeft == 0 && tailLeft == 0; }
  // Frames that are still certain to be needed; with an automatic tail one at
  // least until complete().
  std::int64_t framesWanted() const;

 private:
  void acceptSilence(std::int64_t frames);
  void acceptTail(const double* left, const double* right, std::int64_t frames);

  Sink sink;
  TailPlan plan;
  std::int64_t latency;
  std::int64_t latencyLeft;   // frames to be dropped
  std::int64_t handedOn = 0;  // frames of the body
  std::int64_t bodyLeft = 0;  // frames, once the input has ended
  std::int64_t tailLeft;      // frames at most
  bool ended = false;
  // Quiet frames that go into the file only if something follows them.
  std::vector<double> quietLeft;
  std::vector<double> quietRight;
};
