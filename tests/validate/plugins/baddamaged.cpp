// Effects that some samples break: loud ones, tiny ones, none at all.
#include <cmath>
#include <cstdlib>

#include "tests/validate/plugins/soundeffect.h"

namespace {

// One output is made of one input, sample by sample.
class Shaper : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  virtual float shaped(float sample) = 0;
  void process(float** in, float** out, VstInt32 frames) override {
    SoundEffect::process(in, out, frames);
    for (VstInt32 frame = 0; frame < frames; ++frame) out[0][frame] = shaped(out[0][frame]);
  }
};

// The gain is a half at first.
class DividesByTheRest : public Shaper {
 public:
  using Shaper::Shaper;

 protected:
  float shaped(float sample) override { return sample / (0.5F - std::fabs(sample)); }
};
EFFECT_IN_FILE(dividesbytherest, DividesByTheRest);

class GrowsExponentially : public Shaper {
 public:
  using Shaper::Shaper;

 protected:
  float shaped(float sample) override { return std::exp(sample); }
};
EFFECT_IN_FILE(growsexponentially, GrowsExponentially);

class DividesBySamples : public Shaper {
 public:
  using Shaper::Shaper;

 protected:
  float shaped(float sample) override { return sample == 0.0F ? 0.0F : 1.0F / sample; }
};
EFFECT_IN_FILE(dividesbysamples, DividesBySamples);

class NeedsNumbers : public Shaper {
 public:
  using Shaper::Shaper;

 protected:
  float shaped(float sample) override {
    if (std::isnan(sample)) std::abort();
    return sample;
  }
};
EFFECT_IN_FILE(needsnumbers, NeedsNumbers);

class FeedsBack : public Shaper {
 public:
  using Shaper::Shaper;

 protected:
  float shaped(float sample) override { return state = sample + 0.5F * state; }
  void clear() override {
    Shaper::clear();
    state = 0.0F;
  }

  float state = 0.0F;
};
EFFECT_IN_FILE(feedsback, FeedsBack);

class FeedsBackForEver : public FeedsBack {
 public:
  using FeedsBack::FeedsBack;

 protected:
  void clear() override {}
};
EFFECT_IN_FILE(feedsbackforever, FeedsBackForEver);

// A tone that doubles within a second and a half.
class GrowsInSilence : public Shaper {
 public:
  using Shaper::Shaper;

 protected:
  float shaped(float sample) override { return state = 0.001F * sample + 1.00002F * state; }
  void clear() override {
    Shaper::clear();
    state = 0.5F;
  }

 private:
  float state = 0.5F;
};
EFFECT_IN_FILE(growsinsilence, GrowsInSilence);

}  // namespace
