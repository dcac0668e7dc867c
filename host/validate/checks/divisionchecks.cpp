// Checks that the sound depends on the sound, not on how it is cut, on what else lives beside it,
// or on the time.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <random>

#include "host/validate/check.h"
#include "host/validate/means/rendering.h"
#include "host/validate/means/sound.h"

namespace {

constexpr int kFrames = 1 << 13;
constexpr int kBlock = 512;      // frames
constexpr int kWhole = 1 << 12;  // frames: the block that is cut

// How a block is cut: at random below `longest` frames, and what is said of it.
struct Cut {
  int longest;
  const char* what;
};
constexpr std::array kCuts{
    Cut{1, "frame by frame"},
    Cut{64, "in random blocks of up to 64"},
    Cut{1024, "in random blocks of up to 1024"},
};

template <typename Sample>
using Compare = void (*)(Trial&, const Sound<Sample>&, const Sound<Sample>&, const char*);

// lead: frames in front of it that are never cut, in which a new effect settles.
template <typename Sample>
void compareCuts(Trial& trial, LoadedEffect& effect, int lead, Compare<Sample> needSame) {
  const auto input = noise<Sample>(trial, effect.subject.record().numInputs, lead + kWhole);
  std::vector<int> whole = equalBlocks(lead, kBlock);
  const std::size_t leadBlocks = whole.size();
  whole.push_back(kWhole);
  Playing<Sample> playing;
  playing.announced = kWhole;
  const auto expected = reliablyRendered(trial, effect.module, input, whole, playing);
  for (int round = 0; round < trial.rounds(2); ++round) {
    for (const Cut& cut : kCuts) {
      if (cut.longest == 1 && round > 0) continue;  // always the same
      trial.step("playing a sound %s (%s)", cut.what, kPrecision<Sample>);
      std::vector<int> blocks(whole.begin(),
                              whole.begin() + static_cast<std::ptrdiff_t>(leadBlocks));
      for (const int block : randomBlocks(trial, kWhole, cut.longest)) blocks.push_back(block);
      needSame(trial, expected, rendered(trial, effect.module, input, blocks, playing), cut.what);
    }
  }
}

// Effects may move to their settings in steps of a block, so they have a second for that.
void sameSoundWhenCut(Trial& trial) {
  constexpr int kSecond = 48000;  // frames
  LoadedEffect effect(trial);
  compareCuts<float>(trial, effect, kSecond, needSameSound<float>);
}

void sameBitsWhenCut(Trial& trial) {
  LoadedEffect effect(trial);
  inEachPrecision(effect.subject, [&]<typename Sample>() {
    compareCuts<Sample>(trial, effect, 0, needSameBits<Sample>);
  });
}

// Moves a parameter in front of a block: the same ones by the same ways whenever it is called with
// the same numbers.
void moveOne(Subject& subject, int block, std::uint64_t way) {
  const int count = subject.record().numParams;
  if (count == 0) return;
  std::mt19937_64 chance(way + static_cast<std::uint64_t>(block));
  constexpr std::uint64_t kValues = 101;  // 0, 0.01 ... 1
  const auto index = static_cast<int>(chance() % static_cast<std::uint64_t>(count));
  subject.setParameter(index, static_cast<float>(chance() % kValues) / (kValues - 1));
}

constexpr int kEvery = 32;  // frames: as fine as hosts automate

template <typename Sample>
Sound<Sample> automated(Trial& trial, LoadedEffect& effect, const Sound<Sample>& input,
                        std::uint64_t way) {
  Playing<Sample> playing;
  playing.before = [&](Subject& subject, int block) {
    trial.step("moving a parameter in front of block %d of %d frames (%s)", block, kEvery,
               kPrecision<Sample>);
    moveOne(subject, block, way);
  };
  return rendered(trial, effect.module, input, equalBlocks(kFrames, kEvery), playing);
}

void needParameters(Trial& trial, LoadedEffect& effect) {
  if (effect.subject.record().numParams == 0) trial.leaveOut("it has no parameters");
}

void automation(Trial& trial) {
  LoadedEffect effect(trial);
  needParameters(trial, effect);
  inEachPrecision(effect.subject, [&]<typename Sample>() {
    for (int round = 0; round < trial.rounds(2); ++round) {
      const auto input = noise<Sample>(trial, effect.subject.record().numInputs, kFrames);
      const auto heard = automated(trial, effect, input, trial.random()());
      for (std::size_t pin = 0; pin < heard.size(); ++pin) {
        const auto bad = std::find_if(heard[pin].begin(), heard[pin].end(),
                                      [](Sample sample) { return !std::isfinite(sample); });
        if (bad != heard[pin].end())
          trial.fail("output %zu, frame %d is no number while parameters move (%s)", pin + 1,
                     static_cast<int>(bad - heard[pin].begin()), kPrecision<Sample>);
      }
    }
  });
}

void sameAutomation(Trial& trial) {
  LoadedEffect effect(trial);
  needParameters(trial, effect);
  inEachPrecision(effect.subject, [&]<typename Sample>() {
    const auto input = noise<Sample>(trial, effect.subject.record().numInputs, kFrames);
    reliablyRendered(trial, effect.module, input, equalBlocks(kFrames, kEvery));
    const std::uint64_t way = trial.random()();
    const auto once = automated(trial, effect, input, way);
    needSameBits(trial, once, automated(trial, effect, input, way),
                 "when the same parameters move a second time");
  });
}

// Another effect of the same module plays something else in between, with other values.
void twoEffects(Trial& trial) {
  LoadedEffect effect(trial);
  inEachPrecision(effect.subject, [&]<typename Sample>() {
    Subject& other = effect.subject;
    const auto input = noise<Sample>(trial, other.record().numInputs, kFrames);
    const std::vector<int> blocks = equalBlocks(kFrames, kBlock);
    const auto expected = reliablyRendered(trial, effect.module, input, blocks);
    other.start(44100.0, kBlock, kIsDouble<Sample>);
    Stretch<Sample> loud(other, kBlock);
    loud.fillWithNoise(trial);
    const std::uint64_t way = trial.random()();
    Playing<Sample> playing;
    playing.before = [&](Subject&, int block) {
      trial.step("playing two effects in turn (%s)", kPrecision<Sample>);
      moveOne(other, block, way);
      loud.playAll(other, kBlock);
    };
    needSameBits(trial, expected, rendered(trial, effect.module, input, blocks, playing),
                 "beside another effect of the same plug-in");
    other.stop();
  });
}

constexpr std::array kChecks{
    Check{"parameters may move in front of every 32 frames", 5, 60, automation},
    Check{"two effects do not hear each other", 5, 60, twoEffects},
    Check{"blocks of any size give the same sound", 7, 120, sameSoundWhenCut},
    Check{"the same movements give the same bits", 10, 60, sameAutomation},
    Check{"blocks of any size give the same bits", 10, 120, sameBitsWhenCut},
};

}  // namespace

std::span<const Check> divisionChecks() {
  return kChecks;
}
