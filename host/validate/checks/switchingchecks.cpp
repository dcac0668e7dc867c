// Checks of switching off and on, and of rates and block sizes that are told at any time.
#include <array>

#include "host/base/text.h"
#include "host/validate/check.h"
#include "host/validate/means/sound.h"

namespace {

constexpr std::array kRates{44100.0, 48000.0, 88200.0, 96000.0, 192000.0};  // Hz
constexpr std::array kBlocks{32, 64, 100, 480, 512, 1024, 4096};            // frames

void tell(Subject& subject, double rate, int block) {
  subject.host().setSampleRate(rate);
  subject.host().setBlockSize(block);
  subject.dispatch(effSetSampleRate, 0, 0, nullptr, static_cast<float>(rate));
  subject.dispatch(effSetBlockSize, 0, block);
}

template <typename Sample>
void playBlocks(Trial& trial, Subject& subject, int frames, int count, const char* when) {
  trial.step("playing %d blocks of %d frames %s (%s)", count, frames, when, kPrecision<Sample>);
  Stretch<Sample> stretch(subject, frames);
  for (int block = 0; block < count; ++block) {
    stretch.fillWithNoise(trial);
    spoilOutputs(stretch);
    stretch.playAll(subject, frames);
    needNumbers(trial, stretch, frames, when);
  }
}

// What hosts have been seen to do: on twice, off twice, off before the first on, never start or
// stop, told the true rate only when it is on.
void asHostsDo(Trial& trial) {
  LoadedEffect effect(trial);
  Subject& subject = effect.subject;
  trial.step("switching off what was not on");
  subject.dispatch(effMainsChanged, 0, 0);
  tell(subject, 44100.0, 512);
  trial.step("switching on");
  subject.dispatch(effMainsChanged, 0, 1);
  playBlocks<float>(trial, subject, 512, 4, "after off, on without a start");
  trial.step("switching on what is on");
  subject.dispatch(effMainsChanged, 0, 1);
  playBlocks<float>(trial, subject, 512, 4, "after it was switched on twice");
  trial.step("telling another rate while on");
  tell(subject, 48000.0, 512);
  playBlocks<float>(trial, subject, 512, 4, "after a rate was told while it was on");
  trial.step("switching off twice");
  subject.dispatch(effMainsChanged, 0, 0);
  subject.dispatch(effMainsChanged, 0, 0);
  subject.dispatch(effMainsChanged, 0, 1);
  playBlocks<float>(trial, subject, 512, 4, "after it was switched off twice and on");
  trial.step("switching off");
  subject.dispatch(effMainsChanged, 0, 0);
}

void atRandom(Trial& trial) {
  LoadedEffect effect(trial);
  Subject& subject = effect.subject;
  inEachPrecision(subject, [&]<typename Sample>() {
    for (int round = 0; round < trial.rounds(20); ++round) {
      const double rate = kRates[static_cast<std::size_t>(trial.randomInt(0, kRates.size() - 1))];
      const int block = kBlocks[static_cast<std::size_t>(trial.randomInt(0, kBlocks.size() - 1))];
      trial.step("switching on at %g Hz for blocks of %d, round %d (%s)", rate, block, round + 1,
                 kPrecision<Sample>);
      subject.start(rate, block, kIsDouble<Sample>);
      const std::string when =
          formatted("in round %d, at %g Hz in blocks of %d", round + 1, rate, block);
      playBlocks<Sample>(trial, subject, block, trial.randomInt(0, 3), when.c_str());
      trial.step("switching off, round %d (%s)", round + 1, kPrecision<Sample>);
      subject.stop();
    }
  });
}

// Frames that were told are never exceeded, but everything is told while it is on.
void toldWhileOn(Trial& trial) {
  LoadedEffect effect(trial);
  Subject& subject = effect.subject;
  subject.start(kRates[0], kBlocks[0]);
  for (int round = 0; round < trial.rounds(20); ++round) {
    const double rate = kRates[static_cast<std::size_t>(trial.randomInt(0, kRates.size() - 1))];
    const int block = kBlocks[static_cast<std::size_t>(trial.randomInt(0, kBlocks.size() - 1))];
    trial.step("telling %g Hz and blocks of %d while it is on, round %d", rate, block, round + 1);
    tell(subject, rate, block);
    playBlocks<float>(
        trial, subject, block, 2,
        formatted("after %g Hz and blocks of %d were told while on", rate, block).c_str());
  }
  subject.stop();
}

// There are hosts that open and switch on nothing: they tell the rate and process.
void neverOn(Trial& trial) {
  LoadedEffect effect(trial);
  tell(effect.subject, 48000.0, 512);
  playBlocks<float>(trial, effect.subject, 512, 8, "without having been switched on");
}

constexpr std::array kChecks{
    Check{"sound goes through however hosts switch it on", 5, 20, asHostsDo},
    Check{"it is switched off and on at random, with other rates and blocks", 7, 60, atRandom},
    Check{"rate and block size may be told while it is on", 9, 60, toldWhileOn},
    Check{"sound goes through without switching on", 9, 20, neverOn},
};

}  // namespace

std::span<const Check> switchingChecks() {
  return kChecks;
}
