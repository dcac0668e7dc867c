// Effects whose parameters differ, drift, or do not bear what they are set to.
#include <cmath>
#include <limits>

#include "tests/validate/plugins/soundeffect.h"

namespace {

class OtherDefaults : public SoundEffect {
 public:
  explicit OtherDefaults(audioMasterCallback callback) : SoundEffect(callback) {
    static int made = 0;
    programs[0].values[kFeed] = made++ % 2 == 0 ? 0.25F : 0.75F;
  }
};
EFFECT_IN_FILE(otherdefaults, OtherDefaults);

class BeyondOne : public SoundEffect {
 public:
  explicit BeyondOne(audioMasterCallback callback) : SoundEffect(callback) {
    programs[0].values[kGain] = 1.5F;
  }
};
EFFECT_IN_FILE(beyondone, BeyondOne);

class Drifts : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void setParameter(VstInt32 index, float value) override {
    SoundEffect::setParameter(index, 0.99F * value);
  }
};
EFFECT_IN_FILE(drifts, Drifts);

class KeepsNan : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void setParameter(VstInt32 index, float value) override {
    if (index >= 0 && index < kParameters && std::isnan(value))
      programs[current].values[index] = value;
    else
      SoundEffect::setParameter(index, value);
  }
};
EFFECT_IN_FILE(keepsnan, KeepsNan);

// What it once was set to stays in its memory.
class PoisonedByInfinity : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void setParameter(VstInt32 index, float value) override {
    if (std::isinf(value)) previous[0] = static_cast<double>(value - value);
    SoundEffect::setParameter(index, value);
  }
  void process(float** in, float** out, VstInt32 frames) override {
    const double kept = previous[0];
    SoundEffect::process(in, out, frames);
    if (!std::isnan(kept) || frames == 0) return;
    previous[0] = kept;
    out[0][frames - 1] = static_cast<float>(kept);
  }
  void clear() override {}
};
EFFECT_IN_FILE(poisonedbyinfinity, PoisonedByInfinity);

// Of the checks in which it does not move, none is this fault's.
class ShowsNoNumber : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  float getParameter(VstInt32) override { return std::numeric_limits<float>::quiet_NaN(); }
};
EFFECT_IN_FILE(showsnonumber, ShowsNoNumber);

}  // namespace
