// Between the effect and the file.
#include "host/sound/outputstage.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

OutputStage::OutputStage(Sink receiver, std::int64_t frames, const TailPlan& tail)
    : sink(std::move(receiver)),
      plan(tail),
      latency(frames),
      latencyLeft(frames),
      tailLeft(tail.frames) {}

void OutputStage::setLatency(std::int64_t frames) {
  latencyLeft += frames - latency;
  latency = frames;
  const std::int64_t skipped = std::max<std::int64_t>(-latencyLeft, 0);
  latencyLeft += skipped;
  acceptSilence(skipped);
}

void OutputStage::acceptSilence(std::int64_t frames) {
  static constexpr int kPiece = 1024;  // frames
  static constexpr std::array<double, kPiece> kSilent{};
  for (; frames > 0; frames -= kPiece) {
    accept(kSilent.data(), kSilent.data(),
           static_cast<int>(std::min<std::int64_t>(frames, kPiece)));
  }
}

void OutputStage::endOfInput(std::int64_t inputFrames) {
  ended = true;
  bodyLeft = inputFrames - handedOn;
}

std::int64_t OutputStage::framesWanted() const {
  if (complete()) return 0;
  return latencyLeft + bodyLeft +
         (plan.automatic ? std::min<std::int64_t>(tailLeft, plan.quietFrames) : tailLeft);
}

void OutputStage::accept(const double* left, const double* right, int frames) {
  std::int64_t first = std::min<std::int64_t>(latencyLeft, frames);
  latencyLeft -= first;
  const std::int64_t body = ended ? std::min(bodyLeft, frames - first) : frames - first;
  if (body > 0) sink(left + first, right + first, static_cast<int>(body));
  handedOn += body;
  if (!ended) return;
  bodyLeft -= body;
  first += body;
  if (first < frames) acceptTail(left + first, right + first, frames - first);
}

void OutputStage::acceptTail(const double* left, const double* right, std::int64_t frames) {
  frames = std::min(frames, tailLeft);
  if (!plan.automatic) {
    if (frames > 0) sink(left, right, static_cast<int>(frames));
    tailLeft -= frames;
    return;
  }
  for (std::int64_t frame = 0; frame < frames && tailLeft > 0; ++frame) {
    --tailLeft;
    quietLeft.push_back(left[frame]);
    quietRight.push_back(right[frame]);
    const bool silent = std::abs(left[frame]) < kSilence && std::abs(right[frame]) < kSilence;
    if (!silent) {
      sink(quietLeft.data(), quietRight.data(), static_cast<int>(quietLeft.size()));
      quietLeft.clear();
      quietRight.clear();
    } else if (static_cast<std::int64_t>(quietLeft.size()) >= plan.quietFrames) {
      tailLeft = 0;
    }
  }
}
