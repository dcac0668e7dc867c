// The effect behind its VST 2.4 record, for an adapter that offers it by another interface and is
// its host.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "plugin/vst24.h"

// What the effect tells its host. It comes from inside calls of a HostedEffect, on their threads.
class HostedEffectListener {
 public:
  virtual void parameterEdited(int index,
                               float value) = 0;  // by the user; the effect has it already
  virtual void editBegun(int index) = 0;          // a gesture of the user
  virtual void editEnded(int index) = 0;
  virtual void displayOutdated() = 0;  // parameters, names or all of the bank may be others

 protected:
  ~HostedEffectListener() = default;
};

// Life: made, set up, started, processed, stopped, ended. Its owner makes, ends and shows it on the
// user-interface thread; between start and stop one thread processes. Parameters and chunks from
// any thread. Nothing but make and takeChunk asks for memory here.
class HostedEffect {
 public:
  // rate: Hz. inputs: 1 or 2; there are two outputs always. Null where no effect could be made or
  // it does not take these. The listener outlives it.
  static std::unique_ptr<HostedEffect> make(HostedEffectListener& listener, double rate,
                                            int inputs);
  ~HostedEffect();
  HostedEffect(const HostedEffect&) = delete;
  HostedEffect& operator=(const HostedEffect&) = delete;

  // What it says of itself; empty or 0 where it says nothing.
  std::string text(VstInt32 opcode, VstInt32 index = 0) const;  // without blanks at its ends
  int version() const;
  VstInt32 uniqueID() const { return record->uniqueID; }
  int parameterCount() const { return record->numParams; }
  bool isSwitch(int index) const;

  float parameter(int index) const { return record->getParameter(record, index); }
  void setParameter(int index, float value) { record->setParameter(record, index, value); }

  void start();
  void stop();
  // Where it has been started: what was heard before is forgotten, and nothing glides.
  void startAgain();
  bool isStarted() const { return started; }
  // Two pointers each; the buffers may be the same ones.
  void process(float** inputs, float** outputs, VstInt32 frames) {
    record->processReplacing(record, inputs, outputs, frames);
  }

  // The bytes stay the effect's, until its next chunk. None where it gives none.
  std::span<const unsigned char> chunk();
  // False: it does not take them, and is as it was.
  bool takeChunk(std::span<const unsigned char> bytes);

  struct Size {
    int width;  // pixels
    int height;
  };
  // parent: X11 window id, NSView*. scale: pixels of the screen for one of the window's; 0: the
  // desktop's.
  bool openWindow(void* parent, float scale = 0.0F);
  void closeWindow();
  void idleWindow();
  Size windowSize() const;  // 0 x 0 where it has none

 private:
  HostedEffect(AEffect* made, double rate);
  static VstIntPtr answer(AEffect* effect, VstInt32 opcode, VstInt32 index, VstIntPtr value,
                          void* ptr, float opt);
  VstIntPtr call(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0, void* ptr = nullptr,
                 float opt = 0.0F) const {
    return record->dispatcher(record, opcode, index, value, ptr, opt);
  }
  VstIntPtr hear(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr, float opt);

  AEffect* record;
  HostedEffectListener* listener = nullptr;  // null until it is set up
  double sampleRate;                         // Hz
  float windowScale = 0.0F;                  // 0: the desktop's
  bool started = false;
};
