// A small effect with a window that does everything right, to make broken ones of.
#pragma once

#include <xcb/xcb.h>

#include "tests/validate/plugins/soundeffect.h"

// A window of two colours in the host's, on a connection of its own that is there while it is open.
class WindowEffect : public SoundEffect {
 public:
  explicit WindowEffect(audioMasterCallback callback);
  ~WindowEffect() override;

 protected:
  VstIntPtr dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                     float opt) override;
  virtual VstIntPtr giveRect(ERect** rect);
  virtual bool open(xcb_window_t parent);  // false: it cannot be
  virtual void close();
  virtual void idle();
  virtual void map();

  bool isOpen() const { return connection != nullptr; }

  ERect size{0, 0, 90, 160};  // top, left, bottom, right
  xcb_connection_t* connection = nullptr;
  xcb_window_t window = XCB_NONE;

 private:
  void draw();
};
