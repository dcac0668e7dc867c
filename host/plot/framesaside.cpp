// Frames of mid and side that another thread looks at.
#include "host/plot/framesaside.h"

#include <cstddef>
#include <utility>

namespace {

constexpr std::size_t kFrames = 1 << 16;  // handed over at a time: 1.5 s at 44100 Hz

}  // namespace

FramesAside::FramesAside(Look looking) : look(std::move(looking)) {}

void FramesAside::add(const double* mids, const double* sides, int frames) {
  coming.mids.insert(coming.mids.end(), mids, mids + frames);
  coming.sides.insert(coming.sides.end(), sides, sides + frames);
  if (coming.mids.size() >= kFrames) handOver();
}

void FramesAside::finish() {
  if (!coming.mids.empty()) handOver();
  wait();
}

void FramesAside::wait() {
  if (running.valid()) running.get();
}

// Where the system has no thread left, the frames wait until this one asks for them.
void FramesAside::handOver() {
  wait();
  std::swap(coming, seen);
  coming.mids.clear();
  coming.sides.clear();
  running = std::async(std::launch::async | std::launch::deferred, [this] {
    look(seen.mids.data(), seen.sides.data(), static_cast<int>(seen.mids.size()));
  });
}
