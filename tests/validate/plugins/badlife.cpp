// Effects whose life goes wrong: at scanning, opening, switching on, closing, unloading.
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <thread>

#include "tests/validate/plugins/soundeffect.h"

namespace {

class CrashesOnClose : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                     float opt) override {
    if (opcode == effClose) std::abort();
    return SoundEffect::dispatch(opcode, index, value, ptr, opt);
  }
};
EFFECT_IN_FILE(crashesonclose, CrashesOnClose);

class SlowToScan : public SoundEffect {
 public:
  explicit SlowToScan(audioMasterCallback callback) : SoundEffect(callback) {
    std::this_thread::sleep_for(std::chrono::milliseconds(120));
  }
};
EFFECT_IN_FILE(slowtoscan, SlowToScan);

// Tells that it is being made where a test has a pipe to hear it.
class HangsInAScan : public SoundEffect {
 public:
  explicit HangsInAScan(audioMasterCallback callback) : SoundEffect(callback) {
    constexpr auto kNeverMind = std::chrono::seconds(20);
    const char* pipe = std::getenv("HANGS_IN_A_SCAN_TELLS");
    if (pipe != nullptr && write(std::atoi(pipe), "", 1) == 1)
      std::this_thread::sleep_for(kNeverMind);
  }
};
EFFECT_IN_FILE(hangsinascan, HangsInAScan);

class SharesParameters : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  void setParameter(VstInt32 index, float value) override {
    if (index == kFeed) feed = value;
    SoundEffect::setParameter(index, value);
  }
  float getParameter(VstInt32 index) override {
    return index == kFeed ? feed : SoundEffect::getParameter(index);
  }

 private:
  static inline float feed = 0.25F;  // as every instance's should be
};
EFFECT_IN_FILE(sharesparameters, SharesParameters);

class NeedsSwitchingOff : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                     float opt) override {
    if (opcode == effMainsChanged) {
      isOn = value != 0;
    }
    if (opcode == effClose && isOn) std::abort();
    return SoundEffect::dispatch(opcode, index, value, ptr, opt);
  }

 private:
  bool isOn = false;
};
EFFECT_IN_FILE(needsswitchingoff, NeedsSwitchingOff);

class NeedsOpening : public SoundEffect {
 public:
  using SoundEffect::SoundEffect;

 protected:
  VstIntPtr dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                     float opt) override {
    isOpen |= opcode == effOpen;
    return SoundEffect::dispatch(opcode, index, value, ptr, opt);
  }
  float getParameter(VstInt32 index) override {
    if (!isOpen) std::abort();
    return SoundEffect::getParameter(index);
  }

 private:
  bool isOpen = false;
};
EFFECT_IN_FILE(needsopening, NeedsOpening);

// Static destructors run at the host's end and at unloading.
class NeedsClosing : public SoundEffect {
 public:
  explicit NeedsClosing(audioMasterCallback callback) : SoundEffect(callback) {
    static const AtTheEnd end;
    ++alive;
  }
  ~NeedsClosing() override { --alive; }

 private:
  struct AtTheEnd {
    ~AtTheEnd() {
      if (alive > 0) std::abort();
    }
  };
  static inline int alive = 0;
};
EFFECT_IN_FILE(needsclosing, NeedsClosing);
class NeedsClosingBeforeUnloading : public NeedsClosing {
  using NeedsClosing::NeedsClosing;
};
EFFECT_IN_FILE(needsclosingbeforeunloading, NeedsClosingBeforeUnloading);

}  // namespace
