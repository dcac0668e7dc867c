// Checks of the sound at every rate and block size.
#include <algorithm>
#include <array>

#include "host/base/text.h"
#include "host/validate/check.h"
#include "host/validate/means/sound.h"

namespace {

constexpr std::array kUsualRates{44100.0, 48000.0, 96000.0};  // Hz
// Hz: what hosts, files and sound cards have been seen with, and two between
constexpr std::array kRates{8000.0,  11025.0, 16000.0,  22050.0,  32000.0,  44056.0, 47999.5,
                            64000.0, 88200.0, 176400.0, 192000.0, 384000.0, 768000.0};
constexpr std::array kUsualBlocks{64, 256, 1024};                                          // frames
constexpr std::array kBlocks{1, 2, 3, 7, 16, 33, 100, 441, 512, 1023, 4096, 8192, 16384};  // frames
constexpr int kUnusualFrom = 6;  // strictness

bool isUsual(int block) {
  return block >= 32 && block <= 8192;  // frames
}

// Noise through the effect, `least` frames or one block, announced as it comes.
template <typename Sample>
void playBlocks(Trial& trial, Subject& subject, double rate, int block, int least) {
  const int length = std::max(block, least / block * block);
  trial.step("playing %d frames in blocks of %d at %g Hz (%s)", length, block, rate,
             kPrecision<Sample>);
  subject.start(rate, block, kIsDouble<Sample>);
  Stretch<Sample> stretch(subject, length);
  stretch.fillWithNoise(trial);
  spoilOutputs(stretch);
  stretch.playAll(subject, block);
  subject.stop();
  needNumbers(trial, stretch, length, formatted("in blocks of %d at %g Hz", block, rate).c_str());
}

void usualRates(Trial& trial) {
  LoadedEffect effect(trial);
  for (const double rate : kUsualRates) {
    for (const int block : kUsualBlocks)
      playBlocks<float>(trial, effect.subject, rate, block, 4096);
  }
}

void doublePrecision(Trial& trial) {
  LoadedEffect effect(trial);
  needDouble(trial, effect.subject);
  for (const double rate : kUsualRates) {
    for (const int block : kUsualBlocks)
      playBlocks<double>(trial, effect.subject, rate, block, 4096);
  }
}

void anyRate(Trial& trial) {
  LoadedEffect effect(trial);
  inEachPrecision(effect.subject, [&]<typename Sample>() {
    for (const double rate : kRates) {
      for (const int block : kBlocks) playBlocks<Sample>(trial, effect.subject, rate, block, 64);
    }
  });
}

// As hosts do at the ends of a loop or a region: fewer frames than announced, at any moment.
void fewerFrames(Trial& trial) {
  LoadedEffect effect(trial);
  inEachPrecision(effect.subject, [&]<typename Sample>() {
    for (const int announced : {480, 1024, 512, 1, 17, 16384}) {
      if (!isUsual(announced) && trial.strictness() < kUnusualFrom) continue;
      effect.subject.start(48000.0, announced, kIsDouble<Sample>);
      Stretch<Sample> stretch(effect.subject, announced);
      for (int block = 0; block < trial.rounds(10); ++block) {
        const int frames = trial.randomInt(1, announced);
        trial.step("playing %d frames where up to %d were announced (%s)", frames, announced,
                   kPrecision<Sample>);
        stretch.fillWithNoise(trial);
        spoilOutputs(stretch);
        stretch.play(effect.subject, 0, frames);
        const std::string when = formatted("in a block of %d, announced: %d", frames, announced);
        needNumbers(trial, stretch, frames, when.c_str());
        needUntouched(trial, stretch, frames, when.c_str());
      }
      effect.subject.stop();
    }
  });
}

void moreFrames(Trial& trial) {
  LoadedEffect effect(trial);
  inEachPrecision(effect.subject, [&]<typename Sample>() {
    for (const int announced : {1, 64, 512}) {
      effect.subject.start(48000.0, announced, kIsDouble<Sample>);
      for (const int frames : {announced + 1, 2 * announced, 8 * announced + 3}) {
        trial.step("playing %d frames where up to %d were announced (%s)", frames, announced,
                   kPrecision<Sample>);
        Stretch<Sample> stretch(effect.subject, frames);
        stretch.fillWithNoise(trial);
        spoilOutputs(stretch);
        stretch.play(effect.subject, 0, frames);
        needNumbers(trial, stretch, frames,
                    formatted("in a block of %d, announced: %d", frames, announced).c_str());
      }
      effect.subject.stop();
    }
  });
}

template <typename Sample>
void playNothing(Trial& trial, Subject& subject, bool withArrays) {
  constexpr int kBlock = 256;  // frames
  subject.start(48000.0, kBlock, kIsDouble<Sample>);
  Stretch<Sample> stretch(subject, kBlock);
  stretch.fillWithNoise(trial);
  stretch.playAll(subject, kBlock);
  spoilOutputs(stretch);
  const Sound<Sample> before = stretch.outputChannels();
  trial.step("playing no frames %s arrays (%s)", withArrays ? "with" : "without",
             kPrecision<Sample>);
  if (withArrays)
    stretch.play(subject, 0, 0);
  else
    subject.process(static_cast<Sample**>(nullptr), static_cast<Sample**>(nullptr), 0);
  if (!sameBits(before, stretch.outputChannels()))
    trial.fail("a block of no frames writes to the outputs (%s)", kPrecision<Sample>);
  trial.step("playing after a block of no frames (%s)", kPrecision<Sample>);
  stretch.playAll(subject, kBlock);
  needNumbers(trial, stretch, kBlock, "after a block of no frames");
  subject.stop();
}

void noFrames(Trial& trial) {
  LoadedEffect effect(trial);
  inEachPrecision(effect.subject,
                  [&]<typename Sample>() { playNothing<Sample>(trial, effect.subject, true); });
}

void noArrays(Trial& trial) {
  LoadedEffect effect(trial);
  inEachPrecision(effect.subject,
                  [&]<typename Sample>() { playNothing<Sample>(trial, effect.subject, false); });
}

constexpr std::array kChecks{
    Check{"sound goes through at usual rates and block sizes", 3, 60, usualRates},
    Check{"sound goes through in double precision", 3, 60, doublePrecision},
    Check{"blocks may have fewer frames than announced", 5, 60, fewerFrames},
    Check{"sound goes through at any rate from 8 to 768 kHz in blocks of 1 to 16384", 6, 120,
          anyRate},
    Check{"a block may have no frames", 6, 20, noFrames},
    Check{"blocks may have more frames than announced", 9, 20, moreFrames},
    Check{"a block of no frames needs no arrays", 10, 20, noArrays},
};

}  // namespace

std::span<const Check> soundChecks() {
  return kChecks;
}
