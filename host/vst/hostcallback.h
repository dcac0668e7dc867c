// What an effect may ask of its host, and the answers.
#pragma once

#include <atomic>
#include <cstdint>
#include <optional>
#include <thread>

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
  void setSampleRate(double hertz) { sampleRate = hertz; }
  void setBlockSize(int frames) { blockSize = frames; }
  void setUniqueID(VstInt32 id) { uniqueID = id; }
  void setProcessing(bool on) { processing = on; }
  // Processing is heard while it goes on, on a thread that makes itself known. Without this it is
  // offline, on whatever thread. Set before the effect is started.
  void setRealTime(bool on) { realTime = on; }
  void processOnThisThread() { audioThread = std::this_thread::get_id(); }
  void setPosition(std::int64_t frame) { position = frame; }
  // What is said of every pin; connected at first.
  void setPinsConnected(bool connected) { pinsConnected = connected; }

  struct Size {
    int width;  // pixels
    int height;
    bool operator==(const Size&) const = default;
  };
  // Whether this host can show the effect's window, which then takes the size that the effect asks
  // for. Set before the effect is made.
  void setHasWindow(bool has) { hasWindow = has; }
  // The last size asked for since this was last called. On the window's thread, which asks as well.
  std::optional<Size> takeWindowSize();

 private:
  VstIntPtr answer(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr);
  VstIntPtr keepWindowSize(VstInt32 width, VstIntPtr height);
  VstIntPtr processLevel() const;
  VstTimeInfo* timeInfo();
  bool onAudioThread() const { return audioThread.load() == std::this_thread::get_id(); }

  std::atomic<double> sampleRate = 0.0;    // Hz; 0: not known yet
  std::atomic<std::int64_t> position = 0;  // frames
  VstTimeInfo time{};                      // each for who asks there
  VstTimeInfo audioTime{};
  std::atomic<int> blockSize = 0;      // frames; 0: not known yet
  std::atomic<VstInt32> uniqueID = 0;  // 0: the effect is still being made
  std::atomic<bool> processing = false;
  std::atomic<bool> realTime = false;
  std::atomic<std::thread::id> audioThread{};
  std::atomic<bool> pinsConnected = true;
  bool hasWindow = false;
  std::optional<Size> windowSize;  // asked for and not taken yet
};
