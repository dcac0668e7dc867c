// The processing as the host calls it: which buffers are the channels, where the glides go, what
// the meter reads.
#include <cmath>
#include <limits>

#include "effect/trelvan.h"

kernel::Targets Trelvan::targets() const {
  return {derived(kWidthIndex), derived(kEmphasisIndex), delayTarget(),
          isOn(kPhaseIndex) ? -1.0F : 1.0F};
}

// A right buffer counts only where the host says that there is one: its arrays may end after the
// left one's pointer, and a block of no frames may come without arrays.
template <typename Sample>
void Trelvan::processBlock(Sample** inputs, Sample** outputs, VstInt32 sampleFrames) {
  const ProcessingScope scope(processing, "process");
  const bool rightIn = isInputConnected(1) && inputStereo;
  const bool rightOut = isOutputConnected(1) && outputStereo;
  if (sampleFrames > 0) {
    const bool hasRightIn = rightIn && inputs[1] != nullptr && inputs[1] != inputs[0];
    const bool hasRightOut = rightOut && outputs[1] != nullptr && outputs[1] != outputs[0];
    const kernel::Block<Sample> block{inputs[0], inputs[hasRightIn ? 1 : 0], outputs[0],
                                      outputs[hasRightOut ? 1 : 0], sampleFrames};
    if (isOn(kProcessIndex)) {
      kernelForm->widen(signal, *rates, targets(), block);
    } else {
      kernelForm->pass(signal, *rates, targets(), block);
    }
  }
  publishLevels();
}

void Trelvan::processReplacing(float** inputs, float** outputs, VstInt32 sampleFrames) {
  processBlock(inputs, outputs, sampleFrames);
}

void Trelvan::processDoubleReplacing(double** inputs, double** outputs, VstInt32 sampleFrames) {
  processBlock(inputs, outputs, sampleFrames);
}

// Audio thread, after each block.
void Trelvan::publishLevels() {
  constexpr double kMidFloor = 1e-5;
  constexpr double kSideFloor = 1e-7;
  // A level that is infinite or no number would be all that the meter hears until the next resume.
  // Both begin anew, so that their ratio is right at once.
  if (!std::isfinite(signal.midLevel) || !std::isfinite(signal.sideLevel))
    signal.midLevel = signal.sideLevel = 0.0;
  const bool mid = signal.midLevel > kMidFloor;
  if (signal.sideLevel > kSideFloor) {
    midOverSide = mid ? signal.midLevel / signal.sideLevel : 0.0;
  } else {
    midOverSide = mid ? std::numeric_limits<double>::infinity() : kSilent;
  }
}

// Logarithm to base 16 of four times mid over side, shifted so that equal levels read 0 and a ratio
// of four either way is the end of the scale.
float Trelvan::getWidthMeter() const {
  constexpr double kLog10Of4 = 0.6020599913279624;
  constexpr double kPerLog10Of16 = 0.8304820237218405;  // 1 / log10(16)
  const double ratio = midOverSide;
  if (ratio < 0.0) return 0.0F;  // silent
  if (ratio == 0.0) return -0.5F;
  const double reading = (std::log10(ratio) + kLog10Of4) * kPerLog10Of16 - 0.5;
  if (reading < -0.5) return -0.5F;
  if (reading > 0.5) return 0.5F;
  return static_cast<float>(reading);
}
