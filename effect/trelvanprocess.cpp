// The processing: mid, its delayed and shaped copy as side, and the ratio of the two for the meter.
#include <cmath>

#include "effect/trelvan.h"

// Where the channels of one block are; several may be the same buffer. Each frame is read before it
// is written, left is written before right, so a single output ends up with the right channel.
template <typename Sample>
struct Trelvan::Frames {
  const Sample* inL;
  const Sample* inR;
  Sample* outL;
  Sample* outR;
  VstInt32 count;
};

Glide Trelvan::glide(ParameterIndex index) {
  const auto slot = static_cast<std::size_t>(index);
  return Glide(smoothed[slot], derived(index), glideCoeff);
}

// The order of operations and the types in here are the definition of the sound: results are the
// same bits for every division into blocks.
template <typename Sample>
void Trelvan::widen(const Frames<Sample>& block) {
  Glide gain = glide(kWidthIndex);
  Glide shape = glide(kEmphasisIndex);
  DelayGlide offset(delayCurrent, delayTarget(), glideCoeff);
  DelayCursor line(delayLine.get(), delayMask, writeIndex);
  Envelope midLevel(midEnvelope, meterCoeff);
  Envelope sideLevel(sideEnvelope, meterCoeff);
  const float phaseSign = derived(kPhaseIndex) < 0.5F ? 1.0F : -1.0F;
  float previous = lastDelayed;  // float in both precisions

  for (VstInt32 frame = 0; frame < block.count; ++frame) {
    const Sample sideGain = phaseSign * gain.next();
    const Sample emphasisNow = shape.next();
    const Sample mid = flushed((block.inL[frame] + block.inR[frame]) * static_cast<Sample>(0.5));
    line.write(static_cast<float>(mid));
    const auto delayed = static_cast<Sample>(line.read(offset.next()));
    const Sample side = flushed((delayed - static_cast<Sample>(previous) * emphasisNow) * sideGain);
    previous = static_cast<float>(delayed);
    midLevel.follow(static_cast<double>(std::fabs(mid)));
    sideLevel.follow(static_cast<double>(std::fabs(side)));
    block.outL[frame] = mid + side;
    block.outR[frame] = mid - side;
  }
  lastDelayed = previous;
}

// Passes the input; the parameters keep gliding and the delay line keeps filling, so that switching
// on is smooth.
template <typename Sample>
void Trelvan::bypass(const Frames<Sample>& block) {
  Glide gain = glide(kWidthIndex);
  Glide shape = glide(kEmphasisIndex);
  DelayCursor line(delayLine.get(), delayMask, writeIndex);
  Envelope midLevel(midEnvelope, meterCoeff);
  Envelope sideLevel(sideEnvelope, meterCoeff);

  for (VstInt32 frame = 0; frame < block.count; ++frame) {
    gain.next();
    shape.next();
    const Sample left = block.inL[frame];
    const Sample right = block.inR[frame];
    const Sample mid = flushed((left + right) * static_cast<Sample>(0.5));
    line.write(static_cast<float>(mid));
    midLevel.follow(static_cast<double>(std::fabs(mid)));
    sideLevel.follow(0.0);
    block.outL[frame] = left;
    block.outR[frame] = right;
  }
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
    const Frames<Sample> block{inputs[0], inputs[hasRightIn ? 1 : 0], outputs[0],
                               outputs[hasRightOut ? 1 : 0], sampleFrames};
    if (derived(kProcessIndex) >= 0.5F) {
      widen(block);
    } else {
      bypass(block);
    }
  }
  // A level that is infinite or no number would be all that the meter hears until the next resume.
  // Both begin anew, so that their ratio is right at once.
  if (!std::isfinite(midEnvelope) || !std::isfinite(sideEnvelope)) midEnvelope = sideEnvelope = 0.0;
  widthMeter = meterReading();
}

void Trelvan::processReplacing(float** inputs, float** outputs, VstInt32 sampleFrames) {
  processBlock(inputs, outputs, sampleFrames);
}

void Trelvan::processDoubleReplacing(double** inputs, double** outputs, VstInt32 sampleFrames) {
  processBlock(inputs, outputs, sampleFrames);
}

// Logarithm to base 16 of four times mid over side, shifted so that equal levels read 0 and a ratio
// of four either way is the end of the scale.
float Trelvan::meterReading() const {
  constexpr double kMidFloor = 1e-5;
  constexpr double kSideFloor = 1e-7;
  constexpr double kLog10Of4 = 0.6020599913279624;
  constexpr double kPerLog10Of16 = 0.8304820237218405;  // 1 / log10(16)
  const bool mid = midEnvelope > kMidFloor;
  const bool side = sideEnvelope > kSideFloor;
  if (mid && side) {
    const double reading =
        (std::log10(midEnvelope / sideEnvelope) + kLog10Of4) * kPerLog10Of16 - 0.5;
    if (reading < -0.5) return -0.5F;
    if (reading > 0.5) return 0.5F;
    return static_cast<float>(reading);
  }
  if (mid) return 0.5F;
  return side ? -0.5F : 0.0F;
}
