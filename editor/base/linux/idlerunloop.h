// The toolkit's run loop, driven by the editors' idle passes: nobody runs an event loop
// for a plug-in.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <list>
#include <vector>

#include "lib/platform/platform_x11.h"
#include "vstgui.h"

// One for the library: the toolkit keeps the first one it is given. Any editor's idle may pump it.
// Handlers and timers come and go while it pumps. User-interface thread.
class IdleRunLoop final : public VSTGUI::X11::IRunLoop {
 public:
  using Actions = std::list<std::function<void()>>;

  // Before a window opens: room for what the toolkit registers for it, which cannot take back half
  // of it where memory runs out. Throws there.
  void makeRoom();
  // Lets every handler look for events where there may be some, then fires each due timer once.
  void pump();
  // Does the work as a part of a pump.
  void during(const std::function<void()>& work);
  // Runs them now, or after the pump that is going on: what ends a window must not do it while the
  // toolkit is on its way through it. A list, because taking one over needs no memory.
  void runOutsidePump(Actions actions) noexcept;

  bool registerEventHandler(int fd, VSTGUI::X11::IEventHandler* handler) override;
  bool unregisterEventHandler(VSTGUI::X11::IEventHandler* handler) override;
  bool registerTimer(std::uint64_t interval, VSTGUI::X11::ITimerHandler* handler) override;  // ms
  bool unregisterTimer(VSTGUI::X11::ITimerHandler* handler) override;

  // The maker has the first reference; the last one gone deletes.
  void remember() override { ++references; }
  void forget() override {
    if (--references == 0) delete this;
  }

 private:
  struct Handler {
    int connection;                       // file descriptor
    VSTGUI::X11::IEventHandler* handler;  // null: taken away while pumping
  };
  struct Timer {
    VSTGUI::X11::ITimerHandler* handler;  // null: taken away while pumping
    std::uint64_t interval;               // ms
    std::uint64_t due;                    // ms
  };

  // A pump on its way; what waits for its end is done whatever ended it.
  class Pumping {
   public:
    explicit Pumping(IdleRunLoop& pumped) : loop(pumped) { ++loop.depth; }
    ~Pumping() { loop.leave(); }
    Pumping(const Pumping&) = delete;
    Pumping& operator=(const Pumping&) = delete;

   private:
    IdleRunLoop& loop;
  };

  ~IdleRunLoop() = default;
  void handleEvents(std::uint64_t time);
  bool isDataThere() const;
  void leave() noexcept;
  void runAfterwards() noexcept;
  void compact();

  std::vector<Handler> handlers;
  std::vector<Timer> timers;
  Actions afterwards;  // wait for the pump's end
  std::atomic<int> references{1};
  std::uint64_t lastLook = 0;  // ms
  bool lookAgain = true;       // something has happened, of which an event may be left
  int depth = 0;               // pumps within pumps, if a host idles from inside a callback
};
