// Effects that trust what they are given as a state.
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

#include "tests/validate/plugins/soundeffect.h"

namespace {

// Takes whatever begins as its own does; what is missing is 0.
class TrustsItsState : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  virtual bool dislikes(const Chunk&, VstIntPtr) const { return false; }
  VstIntPtr takeChunk(const void* bytes, VstIntPtr size, bool programOnly) override {
    if (bytes == nullptr || size <= 0) return 0;
    Chunk taken{};
    std::memcpy(&taken, bytes, std::min(static_cast<std::size_t>(size), sizeof taken));
    if (dislikes(taken, size)) std::abort();
    return SoundEffect::takeChunk(bytes, size, programOnly);
  }
  static constexpr VstInt32 kTurnedMagic = vstFourChars('d', 'n', 'o', 'S');
};

class NeedsBytes : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr takeChunk(const void* bytes, VstIntPtr size, bool programOnly) override {
    if (size == 0) std::abort();
    return SoundEffect::takeChunk(bytes, size, programOnly);
  }
};
EFFECT_IN_FILE(needsbytes, NeedsBytes);

class NeedsAPointer : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr takeChunk(const void* bytes, VstIntPtr size, bool programOnly) override {
    if (size > 0) (void)*static_cast<const volatile unsigned char*>(bytes);
    return SoundEffect::takeChunk(bytes, size, programOnly);
  }
};
EFFECT_IN_FILE(needsapointer, NeedsAPointer);

// Reads as many bytes as a whole state has.
class NeedsItWhole : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr takeChunk(const void* bytes, VstIntPtr size, bool programOnly) override {
    const auto whole = programOnly ? offsetof(Chunk, programs) + sizeof(Program) : sizeof(Chunk);
    if (bytes != nullptr && size > 0)
      (void)static_cast<const volatile unsigned char*>(bytes)[whole - 1];
    return SoundEffect::takeChunk(bytes, size, programOnly);
  }
};
EFFECT_IN_FILE(needsitwhole, NeedsItWhole);

class NeedsTheEnd : public TrustsItsState {
 public:
  using TrustsItsState::TrustsItsState;

 protected:
  bool dislikes(const Chunk&, VstIntPtr size) const override {
    return size > static_cast<VstIntPtr>(sizeof(Chunk));
  }
};
EFFECT_IN_FILE(needstheend, NeedsTheEnd);

// Believes a number in its header.
class TrustsNumbers : public TrustsItsState {
 public:
  using TrustsItsState::TrustsItsState;

 protected:
  bool dislikes(const Chunk& taken, VstIntPtr) const override {
    return taken.magic == chunk.magic && (taken.current < 0 || taken.current >= kPrograms);
  }
};
EFFECT_IN_FILE(trustsnumbers, TrustsNumbers);

// Believes that every state is its own.
class TrustsEverybody : public TrustsItsState {
 public:
  using TrustsItsState::TrustsItsState;

 protected:
  bool dislikes(const Chunk& taken, VstIntPtr size) const override {
    return taken.magic != chunk.magic && size < 5000;
  }
};
EFFECT_IN_FILE(trustseverybody, TrustsEverybody);

// Hangs in what it takes for a long list.
class WalksFarAway : public TrustsItsState {
 public:
  using TrustsItsState::TrustsItsState;

 protected:
  bool dislikes(const Chunk& taken, VstIntPtr size) const override {
    return taken.magic != chunk.magic && size > 100000;
  }
};
EFFECT_IN_FILE(walksfaraway, WalksFarAway);

// Takes the values as they are: one wrong byte makes a parameter that is no number.
class TakesNoNumbers : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr takeChunk(const void* bytes, VstIntPtr size, bool programOnly) override {
    const VstIntPtr taken = SoundEffect::takeChunk(bytes, size, programOnly);
    if (programOnly || size != static_cast<VstIntPtr>(sizeof(Chunk))) return taken;
    Chunk all{};
    std::memcpy(&all, bytes, sizeof all);
    if (all.magic != chunk.magic || taken != 0) return taken;
    for (const float value : all.programs[current].values) {
      if (!(value >= 0.0F && value <= 1.0F)) programs[current].values[kGain] = std::nanf("");
    }
    return taken;
  }
};
EFFECT_IN_FILE(takesnonumbers, TakesNoNumbers);

// Is not the same again after a state that it refused.
class SulksAfterwards : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr takeChunk(const void* bytes, VstIntPtr size, bool programOnly) override {
    if (sulks) return 0;
    const VstIntPtr taken = SoundEffect::takeChunk(bytes, size, programOnly);
    if (taken == 0 && size > 0) {
      sulks = true;
      programs[current].values[kGain] = programs[current].values[kGain] > 0.5F ? 0.0F : 1.0F;
    }
    return taken;
  }
  bool sulks = false;
};
EFFECT_IN_FILE(sulksafterwards, SulksAfterwards);

class TurnsItWrong : public TrustsItsState {
 public:
  using TrustsItsState::TrustsItsState;

 protected:
  bool dislikes(const Chunk& taken, VstIntPtr) const override {
    return taken.magic == kTurnedMagic;
  }
};
EFFECT_IN_FILE(turnsitwrong, TurnsItWrong);

}  // namespace
