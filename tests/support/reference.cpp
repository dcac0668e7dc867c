// The transcription: every line is one step of the rules, in their order.
#include "tests/support/reference.h"

#include <cmath>

Reference::Reference() {
  setParameter(0, 0.0F);
  setParameter(1, 0.5F);
  setParameter(2, 0.0F);
  setParameter(3, 1.0F);
  setParameter(4, 0.0F);
  suspend();
  resume();
  suspend();
}

void Reference::setParameter(int index, float value) {
  if (index == 0) {
    widthGain = (2.0F * value) * (2.0F * value) * 0.5F;
  } else if (index == 1) {
    baseFreqHz = 20.0F + 980.0F * (value * value);
    delayTarget = static_cast<int>(16384.0F - static_cast<float>(sampleRateInt) / baseFreqHz);
  } else if (index == 2) {
    emphasisTarget = value;
  } else if (index == 3) {
    processOn = static_cast<float>(static_cast<int>(value + 0.5F));
  } else if (index == 4) {
    phaseOn = static_cast<float>(static_cast<int>(value + 0.5F));
  }
}

void Reference::setSpeakerArrangement(int ins, int outs) {
  inputStereo = true;
  if (ins == 1 && outs == 2) inputStereo = false;
  outputStereo = true;
}

void Reference::resume() {
  sampleRateInt = static_cast<int>(sampleRate);
  sampleRateFloat = static_cast<float>(sampleRateInt);
  meterCoeff = 1.0 - std::pow(0.0625, 1.0 / (static_cast<double>(sampleRate) * 600.0 * 0.001));
  const float product = sampleRateFloat * 277.0F;
  widthCoeff =
      static_cast<float>(1.0 - std::pow(0.0625, 1.0 / (static_cast<double>(product) * 0.001)));
  emphasisCoeff = widthCoeff;
  delayCoeff = widthCoeff;
  for (float& sample : delayLine) sample = 0.0F;
  midEnvelope = 0.0;
  sideEnvelope = 0.0;
  lastDelayed = 0.0F;
  writeIndex = writeIndex & 16383;
  delayTarget = static_cast<int>(16384.0F - static_cast<float>(sampleRateInt) / baseFreqHz);
  delayCurrent = delayTarget;
  emphasisSmoothed = emphasisTarget;
  widthGainSmoothed = widthGain;
}

void Reference::suspend() {
  sampleRateInt = static_cast<int>(sampleRate);
  sampleRateFloat = sampleRate;
  widthMeter = 0.0F;
  for (float& sample : delayLine) sample = 0.0F;
  midEnvelope = 0.0;
  sideEnvelope = 0.0;
  lastDelayed = 0.0F;
  writeIndex = writeIndex & 16383;
  delayTarget = static_cast<int>(16384.0F - static_cast<float>(sampleRateInt) / baseFreqHz);
}

void Reference::glideGains() {
  widthGainSmoothed = widthGainSmoothed + (widthGain - widthGainSmoothed) * widthCoeff;
  widthGainSmoothed = widthGainSmoothed + 1e-16F;
  widthGainSmoothed = widthGainSmoothed - 1e-16F;
  emphasisSmoothed = emphasisSmoothed + (emphasisTarget - emphasisSmoothed) * emphasisCoeff;
  emphasisSmoothed = emphasisSmoothed + 1e-16F;
  emphasisSmoothed = emphasisSmoothed - 1e-16F;
}

void Reference::glideDelay() {
  const double distance = static_cast<double>(delayTarget) - delayCurrent;
  if (std::fabs(distance) > 0.01) {
    double step = static_cast<double>(delayCoeff) * distance;
    if (step < -0.5) step = -0.5;
    if (step > 1.0) step = 1.0;
    delayCurrent = delayCurrent + step;
  } else {
    delayCurrent = delayTarget;
  }
}

double Reference::readDelayLine() const {
  const int whole = static_cast<int>(delayCurrent);
  const double frac = delayCurrent - static_cast<double>(whole);
  const int k = (whole + writeIndex) & 16383;
  const double here = static_cast<double>(delayLine[k]);
  const double next = static_cast<double>(delayLine[(k + 1) & 16383]);
  return (1.0 - frac) * here + frac * next;
}

void Reference::processReplacing(float** inputs, float** outputs, int frames, bool rightInConnected,
                                 bool rightOutConnected) {
  const float* left = inputs[0];
  const float* right = inputs[0];
  if (rightInConnected && inputs[1] != nullptr && inputStereo && inputs[1] != inputs[0])
    right = inputs[1];
  float* outLeft = outputs[0];
  float* outRight = outputs[0];
  if (rightOutConnected && outputs[1] != nullptr && outputStereo && outputs[1] != outputs[0])
    outRight = outputs[1];
  const float sign = phaseOn < 0.5F ? 1.0F : -1.0F;

  for (int i = 0; i < frames; ++i) {
    const float inL = left[i];
    const float inR = right[i];
    glideGains();
    writeIndex = (writeIndex + 1) & 16383;
    if (processOn >= 0.5F) {
      glideDelay();
      float mid = (inL + inR) * 0.5F;
      mid = mid + 1e-16F;
      mid = mid - 1e-16F;
      delayLine[writeIndex] = mid;
      const float delayed = static_cast<float>(readDelayLine());
      float side = (delayed - lastDelayed * emphasisSmoothed) * (sign * widthGainSmoothed);
      side = side + 1e-16F;
      side = side - 1e-16F;
      lastDelayed = delayed;
      const float outL = mid + side;
      const float outR = mid - side;
      midEnvelope = midEnvelope + (std::fabs(static_cast<double>(mid)) - midEnvelope) * meterCoeff;
      sideEnvelope =
          sideEnvelope + (std::fabs(static_cast<double>(side)) - sideEnvelope) * meterCoeff;
      midEnvelope = midEnvelope + 1e-21;
      midEnvelope = midEnvelope - 1e-21;
      sideEnvelope = sideEnvelope + 1e-21;
      sideEnvelope = sideEnvelope - 1e-21;
      outLeft[i] = outL;
      outRight[i] = outR;
    } else {
      float mid = (inL + inR) * 0.5F;
      mid = mid + 1e-16F;
      mid = mid - 1e-16F;
      delayLine[writeIndex] = mid;
      midEnvelope = midEnvelope + (std::fabs(static_cast<double>(mid)) - midEnvelope) * meterCoeff;
      sideEnvelope = sideEnvelope + (0.0 - sideEnvelope) * meterCoeff;
      midEnvelope = midEnvelope + 1e-21;
      midEnvelope = midEnvelope - 1e-21;
      sideEnvelope = sideEnvelope + 1e-21;
      sideEnvelope = sideEnvelope - 1e-21;
      outLeft[i] = inL;
      outRight[i] = inR;
    }
  }
  updateMeter();
}

void Reference::processDoubleReplacing(double** inputs, double** outputs, int frames,
                                       bool rightInConnected, bool rightOutConnected) {
  const double* left = inputs[0];
  const double* right = inputs[0];
  if (rightInConnected && inputs[1] != nullptr && inputStereo && inputs[1] != inputs[0])
    right = inputs[1];
  double* outLeft = outputs[0];
  double* outRight = outputs[0];
  if (rightOutConnected && outputs[1] != nullptr && outputStereo && outputs[1] != outputs[0])
    outRight = outputs[1];
  const float sign = phaseOn < 0.5F ? 1.0F : -1.0F;

  for (int i = 0; i < frames; ++i) {
    const double inL = left[i];
    const double inR = right[i];
    glideGains();
    writeIndex = (writeIndex + 1) & 16383;
    if (processOn >= 0.5F) {
      glideDelay();
      double mid = (inL + inR) * 0.5;
      mid = mid + 1e-21;
      mid = mid - 1e-21;
      delayLine[writeIndex] = static_cast<float>(mid);
      const double delayed = readDelayLine();
      const double last = static_cast<double>(lastDelayed);
      const double emphasisNow = static_cast<double>(emphasisSmoothed);
      const double gain = static_cast<double>(sign * widthGainSmoothed);
      double side = (delayed - last * emphasisNow) * gain;
      side = side + 1e-21;
      side = side - 1e-21;
      lastDelayed = static_cast<float>(delayed);
      const double outL = mid + side;
      const double outR = mid - side;
      midEnvelope = midEnvelope + (std::fabs(mid) - midEnvelope) * meterCoeff;
      sideEnvelope = sideEnvelope + (std::fabs(side) - sideEnvelope) * meterCoeff;
      midEnvelope = midEnvelope + 1e-21;
      midEnvelope = midEnvelope - 1e-21;
      sideEnvelope = sideEnvelope + 1e-21;
      sideEnvelope = sideEnvelope - 1e-21;
      outLeft[i] = outL;
      outRight[i] = outR;
    } else {
      double mid = (inL + inR) * 0.5;
      mid = mid + 1e-21;
      mid = mid - 1e-21;
      delayLine[writeIndex] = static_cast<float>(mid);
      midEnvelope = midEnvelope + (std::fabs(mid) - midEnvelope) * meterCoeff;
      sideEnvelope = sideEnvelope + (0.0 - sideEnvelope) * meterCoeff;
      midEnvelope = midEnvelope + 1e-21;
      midEnvelope = midEnvelope - 1e-21;
      sideEnvelope = sideEnvelope + 1e-21;
      sideEnvelope = sideEnvelope - 1e-21;
      outLeft[i] = inL;
      outRight[i] = inR;
    }
  }
  updateMeter();
}

void Reference::updateMeter() {
  if (!std::isfinite(midEnvelope) || !std::isfinite(sideEnvelope)) {
    midEnvelope = 0.0;
    sideEnvelope = 0.0;
  }
  if (midEnvelope > 1e-5 && sideEnvelope > 1e-7) {
    widthMeter = static_cast<float>(
        (std::log10(midEnvelope / sideEnvelope) + 0.6020599913279624) * 0.8304820237218405 - 0.5);
    if (widthMeter < -0.5F) widthMeter = -0.5F;
    if (widthMeter > 0.5F) widthMeter = 0.5F;
  } else if (midEnvelope > 1e-5) {
    widthMeter = 0.5F;
  } else if (sideEnvelope > 1e-7) {
    widthMeter = -0.5F;
  } else {
    widthMeter = 0.0F;
  }
}
