// Checks of what a thread that processes must never do.
#include <array>

#include "host/validate/check.h"
#include "host/validate/means/memorywatch.h"
#include "host/validate/means/sound.h"

namespace {

constexpr std::array kBlocks{64, 512, 1024, 333};  // frames
constexpr int kBlocksOfASize = 50;

void needWatch(Trial& trial) {
  if (!MemoryWatch::works()) trial.leaveOut("memory and locks cannot be watched in this build");
}

// What a block must not do, as counted by a watch over it.
struct Watched {
  const char* what;
  std::size_t (*count)();
};
constexpr Watched kAllocations{"asks for memory", MemoryWatch::allocations};
constexpr Watched kReleases{"gives memory back", MemoryWatch::releases};
constexpr Watched kLocks{"takes a lock", MemoryWatch::locks};

template <typename Sample>
void playWatched(Trial& trial, Subject& subject, double rate, std::span<const Watched> watched) {
  subject.start(rate, kBlocks[2], kIsDouble<Sample>);
  Stretch<Sample> stretch(subject, kBlocks[2]);
  stretch.fillWithNoise(trial);
  // Once without being watched: much comes to be at the first block.
  for (const int frames : kBlocks) stretch.play(subject, 0, frames);
  for (const int frames : kBlocks) {
    for (int block = 0; block < kBlocksOfASize; ++block) {
      trial.step("processing %d frames at %.0f Hz (%s)", frames, rate, kPrecision<Sample>);
      {
        const MemoryWatch watch;
        stretch.play(subject, 0, frames);
      }
      for (const Watched& one : watched) {
        if (one.count() > 0)
          trial.fail(
              "%s while processing block %d of %d frames (%s), first in %s (%zu in that block)",
              one.what, block + 1, frames, kPrecision<Sample>, MemoryWatch::culprit().c_str(),
              one.count());
      }
    }
  }
  subject.stop();
}

void processWatched(Trial& trial, std::span<const Watched> watched) {
  needWatch(trial);
  LoadedEffect effect(trial);
  inEachPrecision(effect.subject, [&]<typename Sample>() {
    for (const double rate : {44100.0, 192000.0})
      playWatched<Sample>(trial, effect.subject, rate, watched);
  });
}

void asksForNoMemory(Trial& trial) {
  processWatched(trial, std::array{kAllocations, kReleases});
}

void takesNoLock(Trial& trial) {
  processWatched(trial, std::array{kLocks});
}

// As a host's automation does it between two blocks.
void movingAsksForNoMemory(Trial& trial) {
  needWatch(trial);
  PluginModule module(trial.plugin());
  Subject subject(module);
  needSoundIn(trial, subject);
  const int count = subject.record().numParams;
  if (count == 0) trial.leaveOut("it has no parameters");
  subject.start(48000.0, kBlocks[0]);  // Hz
  Stretch<float> stretch(subject, kBlocks[0]);
  stretch.fillWithNoise(trial);
  stretch.play(subject, 0, kBlocks[0]);
  for (int index = 0; index < count; ++index) subject.setParameter(index, 0.5F);
  for (int move = 0; move < trial.rounds(2 * count); ++move) {
    const int index = trial.randomInt(0, count - 1);
    const float value = trial.randomUnit();
    trial.step("moving parameter %d to %g between two blocks", index, value);
    {
      const MemoryWatch watch;
      subject.setParameter(index, value);
      stretch.play(subject, 0, kBlocks[0]);
    }
    if (MemoryWatch::allocations() > 0)
      trial.fail(
          "asks for memory when parameter %d is moved between two blocks: %zu times, first "
          "in %s",
          index, MemoryWatch::allocations(), MemoryWatch::culprit().c_str());
  }
}

constexpr std::array kChecks{
    Check{"processing asks for no memory", 10, 20, asksForNoMemory},
    Check{"moving a parameter between two blocks asks for no memory", 10, 20,
          movingAsksForNoMemory},
    Check{"processing takes no lock", 10, 20, takesNoLock},
};

}  // namespace

std::span<const Check> realtimeChecks() {
  return kChecks;
}
