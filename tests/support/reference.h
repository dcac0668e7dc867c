// A plain transcription of the effect's rules, one frame after the other, that the plug-in must
// equal bit for bit.
#pragma once

// Shares no code with the effect and is written to be read, not to be fast: all state lives in
// members, the two precisions are written out one by one. Finite parameter values and sample rates
// from 1 Hz to 2^31 Hz.
class Reference {
 public:
  static constexpr int kLength = 16384;  // frames of the delay line

  // As an instance is after its construction: 44100 Hz, width 0, baseFreq 0.5, emphasis 0, process
  // on, phase off.
  Reference();

  void setSampleRate(float hz) { sampleRate = hz; }
  void setParameter(int index, float value);  // raw value, as the host sends it
  void setSpeakerArrangement(int ins, int outs);
  void resume();
  void suspend();

  // The buffers may be the same or, for the right channels, null. What the host says about the
  // right pins comes as arguments.
  void processReplacing(float** inputs, float** outputs, int frames, bool rightInConnected,
                        bool rightOutConnected);
  void processDoubleReplacing(double** inputs, double** outputs, int frames, bool rightInConnected,
                              bool rightOutConnected);

  float getWidthMeter() const { return widthMeter; }

  // All state, open to the tests.
  float sampleRate = 44100.0F;
  bool inputStereo = true;
  bool outputStereo = true;
  float widthGain = 0.0F;
  float baseFreqHz = 20.0F;
  float emphasisTarget = 0.0F;
  float processOn = 0.0F;
  float phaseOn = 0.0F;
  float widthGainSmoothed = 0.0F;
  float emphasisSmoothed = 0.0F;
  float widthCoeff = 0.0F;
  float emphasisCoeff = 0.0F;
  float delayCoeff = 0.0F;
  int delayTarget = 0;
  double delayCurrent = 0.0;
  float widthMeter = 0.0F;
  float delayLine[kLength] = {};
  int writeIndex = 0;
  double midEnvelope = 0.0;
  double sideEnvelope = 0.0;
  float lastDelayed = 0.0F;
  int sampleRateInt = 44100;
  float sampleRateFloat = 44100.0F;
  double meterCoeff = 0.0;

 private:
  void glideGains();
  void glideDelay();
  double readDelayLine() const;
  void updateMeter();
};
