// Effects whose window is not as every host needs it.
#include <fcntl.h>
#include <pthread.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <thread>

#include "tests/validate/plugins/windoweffect.h"

namespace {

class NoSize : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  VstIntPtr giveRect(ERect** rect) override {
    *rect = isOpen() ? nullptr : &size;
    return 0;
  }
};
EFFECT_IN_FILE(nosize, NoSize);

class TurnedSize : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  VstIntPtr giveRect(ERect** rect) override {
    static ERect turned{90, 160, 0, 0};
    *rect = &turned;
    return 1;
  }
};
EFFECT_IN_FILE(turnedsize, TurnedSize);

class NeverOpens : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  bool open(xcb_window_t) override { return false; }
};
EFFECT_IN_FILE(neveropens, NeverOpens);

// Says that it is open; there is nothing.
class OpensNothing : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  bool open(xcb_window_t) override { return true; }
};
EFFECT_IN_FILE(opensnothing, OpensNothing);

class StaysHidden : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  void map() override {}
};
EFFECT_IN_FILE(stayshidden, StaysHidden);

// Keeps its windows for the next time, one more with each.
class KeepsItsWindow : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  void close() override { connection = nullptr; }
};
EFFECT_IN_FILE(keepsitswindow, KeepsItsWindow);

class OpensFiles : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  bool open(xcb_window_t parent) override {
    (void)::open("/dev/null", O_RDONLY | O_CLOEXEC);
    return WindowEffect::open(parent);
  }
};
EFFECT_IN_FILE(opensfiles, OpensFiles);

class StartsThreads : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  bool open(xcb_window_t parent) override {
    std::thread([] { std::this_thread::sleep_for(std::chrono::hours(1)); }).detach();
    return WindowEffect::open(parent);
  }
};
EFFECT_IN_FILE(startsthreads, StartsThreads);

class StartsProcesses : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  bool open(xcb_window_t parent) override {
    if (fork() == 0) _exit(0);
    return WindowEffect::open(parent);
  }
};
EFFECT_IN_FILE(startsprocesses, StartsProcesses);

// Asks the host for another size than it tells.
class AsksAnotherSize : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  bool open(xcb_window_t parent) override {
    askHost(audioMasterSizeWindow, 200, 100);
    return WindowEffect::open(parent);
  }
};
EFFECT_IN_FILE(asksanothersize, AsksAnotherSize);

// Asks for the size that it tells: what the check of it passes.
class AsksItsSize : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  bool open(xcb_window_t parent) override {
    askHost(audioMasterSizeWindow, size.right, size.bottom);
    return WindowEffect::open(parent);
  }
};
EFFECT_IN_FILE(asksitssize, AsksItsSize);

// Takes the size that its parent has at the opening.
class AsLargeAsItsParent : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  bool open(xcb_window_t parent) override {
    xcb_connection_t* asking = xcb_connect(nullptr, nullptr);
    xcb_get_geometry_reply_t* geometry =
        xcb_get_geometry_reply(asking, xcb_get_geometry(asking, parent), nullptr);
    if (geometry != nullptr) {
      size.right = static_cast<VstInt16>(geometry->width);
      size.bottom = static_cast<VstInt16>(geometry->height);
    }
    std::free(geometry);
    xcb_disconnect(asking);
    return WindowEffect::open(parent);
  }
};
EFFECT_IN_FILE(aslargeasitsparent, AsLargeAsItsParent);

// Cannot draw in a parent that is smaller than its drawing.
class NeedsRoom : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  bool open(xcb_window_t itsParent) override {
    parent = itsParent;
    return WindowEffect::open(itsParent);
  }
  void idle() override {
    WindowEffect::idle();
    if (!isOpen()) return;
    xcb_get_geometry_reply_t* geometry =
        xcb_get_geometry_reply(connection, xcb_get_geometry(connection, parent), nullptr);
    if (geometry != nullptr && geometry->width < size.right) std::abort();
    std::free(geometry);
  }
  xcb_window_t parent = XCB_NONE;
};
EFFECT_IN_FILE(needsroom, NeedsRoom);

// Its window works on the thread that made the effect, and the effect while it is closed.
class NeedsQuiet : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  bool isDisturbed() const { return isOpen() && pthread_equal(pthread_self(), maker) == 0; }
  void process(float** in, float** out, VstInt32 frames) override {
    if (isDisturbed()) std::abort();
    WindowEffect::process(in, out, frames);
  }
  void setParameter(VstInt32 index, float value) override {
    if (isDisturbed()) std::abort();
    WindowEffect::setParameter(index, value);
  }
  VstIntPtr takeChunk(const void* bytes, VstIntPtr length, bool programOnly) override {
    if (isDisturbed()) std::abort();
    return WindowEffect::takeChunk(bytes, length, programOnly);
  }
  void idle() override {
    if (isDisturbed()) std::abort();
    WindowEffect::idle();
  }
  const pthread_t maker = pthread_self();
};
EFFECT_IN_FILE(needsquiet, NeedsQuiet);

// Cannot stand a state while its window is open.
class NeedsClosedWindow : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  VstIntPtr takeChunk(const void* bytes, VstIntPtr length, bool programOnly) override {
    if (isOpen()) std::abort();
    return WindowEffect::takeChunk(bytes, length, programOnly);
  }
};
EFFECT_IN_FILE(needsclosedwindow, NeedsClosedWindow);

// Counts its idles, and gives up when they come at 60 Hz.
class NeedsTime : public WindowEffect {
 public:
  using WindowEffect::WindowEffect;

 protected:
  void idle() override {
    if (++idles > 20) std::abort();
    WindowEffect::idle();
  }
  int idles = 0;
};
EFFECT_IN_FILE(needslongidles, NeedsTime);

}  // namespace
