// The editor as the effect base knows it: what the host's editor opcodes are handed to.
#pragma once

#include "plugin/vst24.h"

class AudioEffect;

// Owned by its effect. All calls but setParameter on the host's user-interface thread, which may
// differ from call to call.
class AEffEditor {
 public:
  explicit AEffEditor(AudioEffect* owner) : effect(owner) {}
  virtual ~AEffEditor() = default;
  AEffEditor(const AEffEditor&) = delete;
  AEffEditor& operator=(const AEffEditor&) = delete;

  virtual AudioEffect* getEffect() { return effect; }
  // Hands out the editor's own rectangle; false and null where there is none.
  virtual bool getRect(ERect** out) {
    *out = nullptr;
    return false;
  }
  // window: the host's window (X11 window id, NSView*). False: nothing was opened.
  virtual bool open(void* window) {
    parentWindow = window;
    return false;
  }
  virtual void close() { parentWindow = nullptr; }
  virtual bool isOpen() { return parentWindow != nullptr; }
  virtual void idle() {}

  // Slots of a windowing scheme that no 64-bit host uses.
  virtual void drawDeprecated(ERect*) {}
  virtual VstInt32 mouseDeprecated(VstInt32, VstInt32) { return 0; }
  virtual VstInt32 keyDeprecated(VstInt32) { return 0; }
  virtual void topDeprecated() {}
  virtual void sleepDeprecated() {}

  virtual bool onKeyDown(VstKeyCode&) { return false; }
  virtual bool onKeyUp(VstKeyCode&) { return false; }
  virtual bool onWheel(float) { return false; }
  virtual bool setKnobMode(int) { return false; }

  // The effect was given a value: index and value as they came, even of no parameter. Any thread.
  virtual void setParameter(VstInt32 /*index*/, float /*value*/) {}

 protected:
  AudioEffect* effect;
  void* parentWindow = nullptr;
};
