// Checks with sound that is none, or too much of it: silence, full scale, denormal numbers, NaN and
// infinity, and how an effect comes out of it.
#include <array>
#include <chrono>
#include <cmath>
#include <limits>

#include "host/base/text.h"
#include "host/validate/check.h"
#include "host/validate/means/sound.h"

namespace {

constexpr int kRate = 48000;  // Hz
constexpr int kBlock = 512;   // frames
constexpr int kBlocksInASecond = kRate / kBlock;

template <typename Sample>
void playSeconds(Subject& subject, Stretch<Sample>& stretch, double seconds) {
  const auto blocks = static_cast<int>(seconds * kBlocksInASecond);
  for (int block = 0; block < blocks; ++block) stretch.playAll(subject, kBlock);
}

// Constant, alternating, a single frame: all at `peak`.
template <typename Sample>
void playLoud(Trial& trial, Subject& subject, Sample peak) {
  subject.start(kRate, kBlock, kIsDouble<Sample>);
  Stretch<Sample> stretch(subject, kBlock);
  const auto play = [&](const char* what) {
    for (int block = 0; block < 20; ++block) {
      trial.step("playing %s of %g (%s)", what, static_cast<double>(peak), kPrecision<Sample>);
      spoilOutputs(stretch);
      stretch.playAll(subject, kBlock);
      needNumbers(trial, stretch, kBlock,
                  formatted("in %s of %g", what, static_cast<double>(peak)).c_str());
    }
  };
  stretch.fill(peak);
  play("a constant");
  stretch.fill(-peak);
  play("a constant");
  for (int pin = 0; pin < stretch.inputs(); ++pin) {
    for (int frame = 0; frame < kBlock; ++frame)
      stretch.in(pin)[frame] = frame % 2 == 0 ? peak : -peak;
  }
  play("alternating samples");
  stretch.fill(0);
  for (int pin = 0; pin < stretch.inputs(); ++pin) stretch.in(pin)[0] = peak;
  play("impulses");
  subject.stop();
}

void fullScale(Trial& trial) {
  LoadedEffect effect(trial);
  inEachPrecision(effect.subject,
                  [&]<typename Sample>() { playLoud<Sample>(trial, effect.subject, 1); });
}

// Mixers keep far more than full scale, and so may what comes from them.
void beyondFullScale(Trial& trial) {
  LoadedEffect effect(trial);
  inEachPrecision(effect.subject, [&]<typename Sample>() {
    playLoud<Sample>(trial, effect.subject, 16);     // +24 dB
    playLoud<Sample>(trial, effect.subject, 10000);  // +80 dB
  });
}

// An effect may sound on by itself; it may not grow.
void silence(Trial& trial) {
  LoadedEffect effect(trial);
  inEachPrecision(effect.subject, [&]<typename Sample>() {
    effect.subject.start(kRate, kBlock, kIsDouble<Sample>);
    Stretch<Sample> stretch(effect.subject, kBlock);
    const auto heardIn = [&](double seconds, const char* when) {
      double peak = 0.0;
      for (int block = 0; block < static_cast<int>(seconds * kBlocksInASecond); ++block) {
        spoilOutputs(stretch);
        stretch.playAll(effect.subject, kBlock);
        needNumbers(trial, stretch, kBlock, when);
        peak = std::fmax(peak, peakOf(stretch.outputChannels(), 0, kBlock));
      }
      return peak;
    };
    trial.step("playing silence first (%s)", kPrecision<Sample>);
    heardIn(0.1, "in silence, before any sound");
    trial.step("playing noise (%s)", kPrecision<Sample>);
    stretch.fillWithNoise(trial);
    const double sound = heardIn(0.5, "in noise");
    trial.step("playing silence after noise (%s)", kPrecision<Sample>);
    stretch.fill(0);
    heardIn(4.0, "in silence after noise");
    const double late = heardIn(1.0, "in silence after noise");
    constexpr double kGrown = 4.0;
    if (late > kGrown * std::fmax(sound, 1.0))
      trial.fail("grows by itself in silence: %s dB after 5 s, %s dB while there was noise (%s)",
                 decibelText(late).c_str(), decibelText(sound).c_str(), kPrecision<Sample>);
    effect.subject.stop();
  });
}

// Fills the inputs with numbers below the smallest normal one.
template <typename Sample>
void fillWithDenormals(Trial& trial, Stretch<Sample>& stretch) {
  for (int pin = 0; pin < stretch.inputs(); ++pin) {
    for (int frame = 0; frame < stretch.length(); ++frame)
      stretch.in(pin)[frame] =
          std::numeric_limits<Sample>::min() * static_cast<Sample>(trial.randomUnit() - 0.5F);
  }
}

template <typename Sample>
double secondsFor(Subject& subject, Stretch<Sample>& stretch) {
  const auto begin = std::chrono::steady_clock::now();
  playSeconds(subject, stretch, 1.0);
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

void denormals(Trial& trial) {
  LoadedEffect effect(trial);
  Subject& subject = effect.subject;
  inEachPrecision(subject, [&]<typename Sample>() {
    subject.start(kRate, kBlock, kIsDouble<Sample>);
    Stretch<Sample> stretch(subject, kBlock);
    trial.step("playing noise (%s)", kPrecision<Sample>);
    stretch.fillWithNoise(trial);
    const double usual = secondsFor(subject, stretch);
    trial.step("playing denormal numbers (%s)", kPrecision<Sample>);
    fillWithDenormals(trial, stretch);
    const double denormal = secondsFor(subject, stretch);
    needNumbers(trial, stretch, kBlock, "in denormal numbers");
    constexpr double kSlow = 5.0;  // times; below, it could be the machine
    if (denormal > kSlow * usual)
      trial.note("denormal numbers take %.0f times as long as sound (%s)", denormal / usual,
                 kPrecision<Sample>);
    subject.stop();
  });
}

// What breaks sound, for a tenth of a second; then silence, then noise.
template <typename Sample>
void playBroken(Trial& trial, Subject& subject, Sample broken) {
  Stretch<Sample> stretch(subject, kBlock);
  trial.step("playing %g among noise (%s)", static_cast<double>(broken), kPrecision<Sample>);
  stretch.fillWithNoise(trial);
  for (int pin = 0; pin < stretch.inputs(); ++pin) stretch.in(pin)[kBlock / 2] = broken;
  stretch.playAll(subject, kBlock);
  trial.step("playing nothing but %g (%s)", static_cast<double>(broken), kPrecision<Sample>);
  stretch.fill(broken);
  playSeconds(subject, stretch, 0.1);
}

template <typename Sample>
void needRecovery(Trial& trial, Subject& subject, double silentSeconds, const char* when) {
  Stretch<Sample> stretch(subject, kBlock);
  trial.step("playing silence %s (%s)", when, kPrecision<Sample>);
  playSeconds(subject, stretch, silentSeconds);
  trial.step("playing noise %s (%s)", when, kPrecision<Sample>);
  stretch.fillWithNoise(trial);
  playSeconds(subject, stretch, 1.0);
  needNumbers(trial, stretch, kBlock, when);
}

template <typename Sample>
std::array<Sample, 5> brokenSamples() {
  using Limits = std::numeric_limits<Sample>;
  return {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(), Limits::max(),
          Limits::signaling_NaN()};
}

void recoversWhenSwitched(Trial& trial) {
  LoadedEffect effect(trial);
  Subject& subject = effect.subject;
  inEachPrecision(subject, [&]<typename Sample>() {
    for (const Sample broken : brokenSamples<Sample>()) {
      subject.start(kRate, kBlock, kIsDouble<Sample>);
      playBroken(trial, subject, broken);
      trial.step("switching off after %g (%s)", static_cast<double>(broken), kPrecision<Sample>);
      subject.stop();
      subject.start(kRate, kBlock, kIsDouble<Sample>);
      needRecovery<Sample>(
          trial, subject, 1.0,
          formatted("after %g, switched off and on", static_cast<double>(broken)).c_str());
      subject.stop();
    }
  });
}

void recoversAlone(Trial& trial) {
  LoadedEffect effect(trial);
  inEachPrecision(effect.subject, [&]<typename Sample>() {
    for (const Sample broken : brokenSamples<Sample>()) {
      Subject subject(effect.module);  // a new one, so that each number has its own chance
      subject.start(kRate, kBlock, kIsDouble<Sample>);
      playBroken(trial, subject, broken);
      constexpr double kPatience = 5.0;  // seconds of silence
      needRecovery<Sample>(
          trial, subject, kPatience,
          formatted("after %g and %g s of silence", static_cast<double>(broken), kPatience)
              .c_str());
      subject.stop();
    }
  });
}

// Nothing is asked of the sound, and so nothing of its end: it may not crash or hang.
void bearsAnything(Trial& trial) {
  LoadedEffect effect(trial);
  Subject& subject = effect.subject;
  inEachPrecision(subject, [&]<typename Sample>() {
    subject.start(kRate, kBlock, kIsDouble<Sample>);
    for (const Sample broken : brokenSamples<Sample>()) playBroken(trial, subject, broken);
    subject.stop();
  });
}

constexpr std::array kChecks{
    Check{"full-scale sound gives numbers", 3, 30, fullScale},
    Check{"silence does not grow", 5, 60, silence},
    Check{"denormal numbers give numbers", 5, 60, denormals},
    Check{"sound far beyond full scale gives numbers", 6, 30, beyondFullScale},
    Check{"samples that are no numbers do no harm", 9, 60, bearsAnything},
    Check{"switching off and on heals from samples that are no numbers", 9, 60,
          recoversWhenSwitched},
    Check{"silence heals from samples that are no numbers", 10, 120, recoversAlone},
};

}  // namespace

std::span<const Check> damagedSoundChecks() {
  return kChecks;
}
