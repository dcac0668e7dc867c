// A form of the kernel and the reference side by side: both get every call and every buffer, and
// are compared in sound and state.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "effect/kernelforms.h"
#include "tests/effect/samebits.h"
#include "tests/support/reference.h"

// Which of four buffers each channel is: any of them may be the same.
struct Wiring {
  int inL, inR, outL, outR;
};

class KernelPair {
 public:
  explicit KernelPair(const kernel::Form& tested)
      : form(tested),
        reference(std::make_unique<Reference>()),
        memory(std::make_unique<kernel::LineMemory>()) {
    state.line = memory->line();
  }

  // The reference's, and the kernel's after it. hz: in force at once.
  void resume(float hz) {
    reference->setSampleRate(hz);
    reference->resume();
    clear();
    takeRates();
    state.gain = reference->widthGainSmoothed;
    state.emphasis = reference->emphasisSmoothed;
    state.offset = reference->delayCurrent;
  }
  // The coefficients stay those of the last resume while the delay's target moves.
  void suspend(float hz) {
    reference->setSampleRate(hz);
    reference->suspend();
    clear();
  }

  // One block through both, in four buffers that are compared whole; then what is kept.
  template <typename Sample>
  testing::AssertionResult block(const std::array<std::vector<Sample>, 4>& buffers, int frames,
                                 const Wiring& wiring) {
    auto mine = buffers;
    auto theirs = buffers;
    const auto at = [](std::array<std::vector<Sample>, 4>& of, int number) {
      return of[static_cast<std::size_t>(number)].data();
    };
    const kernel::Block<Sample> run{at(mine, wiring.inL), at(mine, wiring.inR),
                                    at(mine, wiring.outL), at(mine, wiring.outR), frames};
    const kernel::Targets targets{reference->widthGain, reference->emphasisTarget,
                                  reference->delayTarget, reference->phaseOn < 0.5F ? 1.0F : -1.0F};
    if (reference->processOn >= 0.5F) {
      form.widen(state, rates, targets, run);
    } else {
      form.pass(state, rates, targets, run);
    }
    Sample* ins[] = {at(theirs, wiring.inL), at(theirs, wiring.inR)};
    Sample* outs[] = {at(theirs, wiring.outL), at(theirs, wiring.outR)};
    referenceProcess(ins, outs, frames);
    startLevelsAnew();
    for (std::size_t buffer = 0; buffer < mine.size(); ++buffer) {
      const auto size = static_cast<std::size_t>(frames);
      const std::size_t place = firstDifference(mine[buffer].data(), theirs[buffer].data(), size);
      if (place == size) continue;
      return testing::AssertionFailure()
             << "buffer " << buffer << ", frame " << place << ": " << mine[buffer][place]
             << " is not " << theirs[buffer][place];
    }
    return keptAlike();
  }

  // All that is remembered of the signal, and that the line's beginning stands behind its end, too,
  // and its last frame in front of it.
  testing::AssertionResult linesAlike() const {
    const std::size_t place =
        firstDifference<float>(state.line, reference->delayLine, kernel::kLineFrames);
    if (place != kernel::kLineFrames)
      return testing::AssertionFailure() << "the line at " << place << ": " << state.line[place]
                                         << " is not " << reference->delayLine[place];
    if (firstDifference<float>(state.line, state.line + kernel::kLineFrames, kernel::kRunFrames) !=
        kernel::kRunFrames)
      return testing::AssertionFailure() << "the line's beginning is not what is behind its end";
    if (!sameBits(state.line[-1], state.line[kernel::kLineFrames - 1]))
      return testing::AssertionFailure() << "the line's last frame is not what is in front of it";
    return testing::AssertionSuccess();
  }

  kernel::State state;
  kernel::Rates rates;
  const kernel::Form& form;
  std::unique_ptr<Reference> reference;  // on the heap: the delay line is in it

 private:
  void clear() {
    std::fill(std::begin(memory->floats), std::end(memory->floats), 0.0F);
    state.clear();
  }

  void takeRates() {
    rates.glide = reference->widthCoeff;
    double left = 1.0;
    for (int frame = 0; frame < kernel::kGlidingFrames; ++frame) {
      rates.finePowers[frame] = left;
      rates.powers[frame] = static_cast<float>(left);
      left *= 1.0 - static_cast<double>(rates.glide);
    }
    rates.level = reference->meterCoeff;
    left = 1.0;
    for (int frame = kernel::kRunFrames; frame-- > 0; left *= 1.0 - rates.level)
      rates.left[frame] = left;
  }

  // As after every block: a level that is no number would stay so.
  void startLevelsAnew() {
    if (!std::isfinite(state.midLevel) || !std::isfinite(state.sideLevel))
      state.midLevel = state.sideLevel = 0.0;
  }

  testing::AssertionResult keptAlike() const {
    std::string wrong;
    if (!sameBits(state.gain, reference->widthGainSmoothed)) wrong += " gain";
    if (!sameBits(state.emphasis, reference->emphasisSmoothed)) wrong += " emphasis";
    if (!sameBits(state.offset, reference->delayCurrent)) wrong += " offset";
    if (!sameBits(state.lastDelayed, reference->lastDelayed)) wrong += " last delayed";
    if (state.newest != reference->writeIndex) wrong += " newest";
    if (!near(state.midLevel, reference->midEnvelope)) wrong += " mid level";
    if (!near(state.sideLevel, reference->sideEnvelope)) wrong += " side level";
    if (wrong.empty()) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "not the reference's:" << wrong;
  }

  // The levels are summed up in another order. The meter reads a third of their relative error, and
  // what it shall not notice is 1e-9.
  static bool near(double mine, double theirs) {
    constexpr double kRelative = 1e-11;
    constexpr double kAbsolute = 1e-19;  // of what the flush constant leaves, far below hearing
    return std::fabs(mine - theirs) <= kRelative * theirs + kAbsolute;
  }

  void referenceProcess(float** in, float** out, int frames) {
    reference->processReplacing(in, out, frames, true, true);
  }
  void referenceProcess(double** in, double** out, int frames) {
    reference->processDoubleReplacing(in, out, frames, true, true);
  }

  std::unique_ptr<kernel::LineMemory> memory;
};
