// Effects whose sound depends on what it should not: rates, sizes and cuts of blocks, one another.
#include <cmath>
#include <cstdlib>
#include <limits>

#include "tests/validate/plugins/soundeffect.h"

namespace {

class NoNumberAt96k : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    SoundEffect::process(in, out, frames);
    if (rate == 96000.0) out[1][frames - 1] = std::numeric_limits<float>::quiet_NaN();
  }
};
EFFECT_IN_FILE(nonumberat96k, NoNumberAt96k);

class InfiniteAt768k : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    SoundEffect::process(in, out, frames);
    if (rate == 768000.0) out[0][0] = std::numeric_limits<float>::infinity();
  }
};
EFFECT_IN_FILE(infiniteat768k, InfiniteAt768k);

class LeavesLastFrameOut : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void processDouble(double** in, double** out, VstInt32 frames) override {
    SoundEffect::processDouble(in, out, frames - 1);
  }
};
EFFECT_IN_FILE(leaveslastframeout, LeavesLastFrameOut);

class PlaysWholeBlocksOnly : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32) override {
    SoundEffect::process(in, out, blockSize);
  }
};
EFFECT_IN_FILE(playswholeblocksonly, PlaysWholeBlocksOnly);

class TrustsBlockSize : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    if (frames > blockSize) std::abort();  // as a scratch buffer's end is overrun
    SoundEffect::process(in, out, frames);
  }
};
EFFECT_IN_FILE(trustsblocksize, TrustsBlockSize);

class WritesWithoutFrames : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    SoundEffect::process(in, out, frames);
    if (frames == 0) out[0][0] = 0.0F;
  }
};
EFFECT_IN_FILE(writeswithoutframes, WritesWithoutFrames);

class NeedsArrays : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    if (in == nullptr || out == nullptr) std::abort();
    SoundEffect::process(in, out, frames);
  }
};
EFFECT_IN_FILE(needsarrays, NeedsArrays);

// A quarter of a second in, every other block is half as loud.
class FlickersWithBlocks : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    SoundEffect::process(in, out, frames);
    played += frames;
    ++blocks;
    if (played < rate / 4 || blocks % 2 == 0) return;
    for (VstInt32 frame = 0; frame < frames; ++frame) out[0][frame] *= 0.5F;
  }

 private:
  int played = 0;
  int blocks = 0;
};
EFFECT_IN_FILE(flickerswithblocks, FlickersWithBlocks);

class RoundsWithBlocks : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void process(float** in, float** out, VstInt32 frames) override {
    SoundEffect::process(in, out, frames);
    for (VstInt32 frame = 0; frame < frames; ++frame)
      out[1][frame] *= 1.0F + static_cast<float>(frames) * 1e-6F;
  }
};
EFFECT_IN_FILE(roundswithblocks, RoundsWithBlocks);

class BreaksWhenMoved : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void setParameter(VstInt32 index, float value) override {
    if (value != getParameter(index)) broken = true;
    SoundEffect::setParameter(index, value);
  }
  void process(float** in, float** out, VstInt32 frames) override {
    SoundEffect::process(in, out, frames);
    if (broken) out[0][0] = std::numeric_limits<float>::quiet_NaN();
  }

 private:
  bool broken = false;
};
EFFECT_IN_FILE(breakswhenmoved, BreaksWhenMoved);

int movements = 0;  // of all effects together

class RemembersAllMovements : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void setParameter(VstInt32 index, float value) override {
    ++movements;
    SoundEffect::setParameter(index, value);
  }
  void process(float** in, float** out, VstInt32 frames) override {
    SoundEffect::process(in, out, frames);
    out[0][0] += 1e-3F * static_cast<float>(movements);
  }
};
EFFECT_IN_FILE(remembersallmovements, RemembersAllMovements);

// Every other one has one output.
class ChangesItsOutputs : public SoundEffect {
 public:
  explicit ChangesItsOutputs(audioMasterCallback callback) : SoundEffect(callback) {
    outputs = record.numOutputs = made++ % 2 == 0 ? 2 : 1;
  }

 private:
  static inline int made = 0;
};
EFFECT_IN_FILE(changesitsoutputs, ChangesItsOutputs);

double last = 0.0;  // of all effects together

class SharesItsMemory : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void clear() override {
    SoundEffect::clear();
    last = 0.0;
  }
  void process(float** in, float** out, VstInt32 frames) override {
    previous[0] = last;
    SoundEffect::process(in, out, frames);
    last = previous[0];
  }
};
EFFECT_IN_FILE(sharesitsmemory, SharesItsMemory);

}  // namespace
