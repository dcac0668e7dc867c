// Effects that do not bear a lack of memory.
#include <cstdlib>
#include <new>
#include <vector>

#include "tests/validate/plugins/soundeffect.h"

namespace {

class ThrowsWhenOpened : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                     float opt) override {
    constexpr std::size_t kFrames = 100;
    if (opcode == effOpen) memory.resize(kFrames);
    return SoundEffect::dispatch(opcode, index, value, ptr, opt);
  }

 private:
  std::vector<double> memory;
};
EFFECT_IN_FILE(throwswhenopened, ThrowsWhenOpened);

// Asks for memory so often when it is opened that a check has to make more of it than it allows.
class RefusesMore : public SoundEffect {
 public:
  explicit RefusesMore(audioMasterCallback callback) : SoundEffect(callback) {
    if (++made > kMost) throw std::bad_alloc();  // as which no effect is given
  }

 protected:
  VstIntPtr dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                     float opt) override {
    if (opcode == effOpen) {
      for (int time = 0; time < kMost; ++time) {
        auto* memory = static_cast<volatile char*>(std::malloc(1));
        if (memory != nullptr) *memory = 0;
        std::free(const_cast<char*>(memory));
      }
    }
    return SoundEffect::dispatch(opcode, index, value, ptr, opt);
  }

 private:
  static constexpr int kMost = 60;
  static inline int made = 0;
};
EFFECT_IN_FILE(refusesmore, RefusesMore);

class TrustsMemory : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr takeChunk(const void* bytes, VstIntPtr size, bool programOnly) override {
    auto* first = static_cast<char*>(std::malloc(sizeof(double)));
    if (first == nullptr) return 0;
    auto* second = static_cast<volatile char*>(std::malloc(sizeof(double)));
    *second = 0;
    std::free(first);
    std::free(const_cast<char*>(second));
    return SoundEffect::takeChunk(bytes, size, programOnly);
  }
};
EFFECT_IN_FILE(trustsmemory, TrustsMemory);

}  // namespace
