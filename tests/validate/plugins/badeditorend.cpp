// Effects whose window ends wrongly: out of turn, with its parent, the effect, the process, the
// display.
#include <chrono>
#include <cstdlib>
#include <thread>

#include "tests/validate/plugins/windoweffect.h"

namespace {

class IdlesOpenOnly : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  void idle() override {
    if (!isOpen()) std::abort();
    WindowEffect::idle();
  }
};
EFFECT_IN_FILE(idlesopenonly, IdlesOpenOnly);

class ClosesOnce : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  void close() override {
    if (wasClosed && !isOpen()) std::abort();
    wasClosed = true;
    WindowEffect::close();
  }
  bool wasClosed = false;
};
EFFECT_IN_FILE(closesonce, ClosesOnce);

class OpensOnceAtATime : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  bool open(xcb_window_t parent) override {
    if (isOpen()) std::abort();
    return WindowEffect::open(parent);
  }
};
EFFECT_IN_FILE(opensonceatatime, OpensOnceAtATime);

// Asks for its window as it closes, and does not expect that there is none.
class NeedsItsParent : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  void close() override {
    if (isOpen()) {
      xcb_get_geometry_reply_t* geometry =
          xcb_get_geometry_reply(connection, xcb_get_geometry(connection, window), nullptr);
      if (geometry == nullptr && xcb_connection_has_error(connection) == 0) std::abort();
      std::free(geometry);
    }
    WindowEffect::close();
  }
};
EFFECT_IN_FILE(needsitsparent, NeedsItsParent);

// A thread of its window's goes on in the code that is unloaded.
class RunsOn : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  bool open(xcb_window_t parent) override {
    std::thread([] {
      while (true) std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }).detach();
    return WindowEffect::open(parent);
  }
};
EFFECT_IN_FILE(runson, RunsOn);

class NeedsItsClose : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  VstIntPtr dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                     float opt) override {
    if (opcode == effClose && isOpen()) std::abort();
    return WindowEffect::dispatch(opcode, index, value, ptr, opt);
  }
};
EFFECT_IN_FILE(needsitsclose, NeedsItsClose);

// Something static ends before its window does.
int openWindows = 0;
struct AtTheEnd {
  ~AtTheEnd() {
    if (openWindows > 0) std::abort();
  }
};

class MissesTheEnd : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  bool open(xcb_window_t parent) override {
    static const AtTheEnd end;
    ++openWindows;
    return WindowEffect::open(parent);
  }
  void close() override {
    if (isOpen()) --openWindows;
    WindowEffect::close();
  }
};
EFFECT_IN_FILE(missestheend, MissesTheEnd);

// Uses the first screen without asking whether there is one.
class ExpectsADisplay : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  bool open(xcb_window_t parent) override {
    xcb_connection_t* asking = xcb_connect(nullptr, nullptr);
    const bool works = xcb_connection_has_error(asking) == 0;
    xcb_disconnect(asking);
    if (!works) std::abort();
    return WindowEffect::open(parent);
  }
};
EFFECT_IN_FILE(expectsadisplay, ExpectsADisplay);

// Waits for the server as it idles, whether there is one or not.
class WaitsForItsDisplay : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  void idle() override {
    while (isOpen() && xcb_connection_has_error(connection) != 0)
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    WindowEffect::idle();
  }
};
EFFECT_IN_FILE(waitsforitsdisplay, WaitsForItsDisplay);

}  // namespace
