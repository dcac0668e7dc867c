// What an effect may ask of its host, and the answers.
#pragma once

#include <atomic>
#include <cstdint>
#include <optional>

#include "plugin/vst24.h"

// One for each effect, alive as long as the effect. Answers come on whatever thread
// the effect asks.
class HostCallback final {
 public:
  HostCallback() = default;
  HostCallback(const HostCallback&) = delete;
  HostCallback& operator=(const HostCallback&) = delete;

  // What VSTPluginMain is given. Finds the HostCallback by the record's resvd1, which is the
  // host's, and before that by the Scope of the thread.
  static VstIntPtr entry(AEffect* effect, VstInt32 opcode, VstInt32 index, VstIntPtr value,
                         void* ptr, float opt);

  // While one lives, calls from this thread without a known record reach `callback`: during the
  // effect's creation.
  class Scope {
   public:
    explicit Scope(HostCallback* callback);
    ~Scope();
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

   private:
    HostCallback* before;
  };

  // Set by the effect's owner on the thread that calls the effect.
  void setSampleRate(double hertz) { time.sampleRate = hertz; }
  void setBlockSize(int frames) { blockSize = frames; }
  void setUniqueID(VstInt32 id) { uniqueID = id; }
  void setProcessing(bool on) { processing = on; }
  void setPosition(std::int64_t frame);
  // What is said of every pin; connected at first.
  void setPinsConnected(bool connected) { pinsConnected = connected; }

  struct Size {
    int width;  // pixels
    int height;
  };
  // Whether this host can show the effect's window, which then takes the size that the effect asks
  // for. Set before the effect is made.
  void setHasWindow(bool has) { hasWindow = has; }
  // The last size asked for since this was last called. On the window's thread, which asks as well.
  std::optional<Size> takeWindowSize();

 private:
  VstIntPtr answer(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr);
  VstIntPtr keepWindowSize(VstInt32 width, VstIntPtr height);
  VstTimeInfo* timeInfo();

  VstTimeInfo time{};
  std::atomic<int> blockSize = 0;      // frames; 0: not known yet
  std::atomic<VstInt32> uniqueID = 0;  // 0: the effect is still being made
  std::atomic<bool> processing = false;
  std::atomic<bool> pinsConnected = true;
  bool hasWindow = false;
  std::optional<Size> windowSize;  // asked for and not taken yet
};
