// Pumps the toolkit's handlers and timers.
#include "editor/base/linux/idlerunloop.h"

#include <poll.h>

#include <algorithm>
#include <new>

#include "editor/base/steadytime.h"

void IdleRunLoop::makeRoom() {
  constexpr std::size_t kRoom = 16;  // one handler a library, a few timers a window
  handlers.reserve(handlers.size() + kRoom);
  timers.reserve(timers.size() + kRoom);
}

bool IdleRunLoop::isDataThere() const {
  return std::any_of(handlers.begin(), handlers.end(), [](const Handler& each) {
    pollfd asked{each.connection, POLLIN, 0};
    return each.handler != nullptr && poll(&asked, 1, 0) != 0;  // an error is the handler's too
  });
}

// The toolkit ends each look with a question to the X server and waits for the reply, so a pass in
// which nothing goes on does without. An event that came with such a reply waits in the
// connection's memory, where nobody sees it: another look follows whatever has happened, and one
// from time to time.
void IdleRunLoop::handleEvents(std::uint64_t time) {
  constexpr std::uint64_t kLongest = 200;  // ms without a look
  const bool dataThere = isDataThere();
  if (!dataThere && !lookAgain && time - lastLook < kLongest) return;
  lookAgain = dataThere;
  lastLook = time;
  for (std::size_t i = 0; i < handlers.size(); ++i) {  // by index, since the list grows meanwhile
    if (handlers[i].handler != nullptr) handlers[i].handler->onEvent();
  }
}

void IdleRunLoop::pump() {
  const Pumping pumping(*this);
  const std::uint64_t time = steadyMilliseconds();
  handleEvents(time);
  const std::size_t known = timers.size();  // one started by another waits for the next pump
  for (std::size_t i = 0; i < known; ++i) {
    if (timers[i].handler == nullptr || timers[i].due > time) continue;
    timers[i].due = time + timers[i].interval;
    lookAgain = true;
    timers[i].handler->onTimer();
  }
}

void IdleRunLoop::during(const std::function<void()>& work) {
  const Pumping pumping(*this);
  lookAgain = true;
  work();
}

void IdleRunLoop::leave() noexcept {
  if (--depth > 0) return;
  compact();
  runAfterwards();
}

// Each action has left the list before it runs: it may pump again. One that fails does not keep the
// others from it.
void IdleRunLoop::runAfterwards() noexcept {
  while (!afterwards.empty()) {
    Actions next;
    next.splice(next.begin(), afterwards, afterwards.begin());
    try {
      next.front()();
    } catch (const std::bad_alloc&) {
      lookAgain = true;  // what it had begun may have made events
    }
  }
}

void IdleRunLoop::runOutsidePump(Actions actions) noexcept {
  afterwards.splice(afterwards.end(), actions);
  if (depth == 0) runAfterwards();
}

bool IdleRunLoop::registerEventHandler(int fd, VSTGUI::X11::IEventHandler* handler) {
  handlers.push_back({fd, handler});
  lookAgain = true;
  return true;
}

// With the last handler the toolkit forgets this loop, and can no longer take its late timers away.
bool IdleRunLoop::unregisterEventHandler(VSTGUI::X11::IEventHandler* handler) {
  bool none = true;
  for (Handler& each : handlers) {
    if (each.handler == handler) each.handler = nullptr;
    none = none && each.handler == nullptr;
  }
  if (none) {
    for (Timer& timer : timers) timer.handler = nullptr;
  }
  compact();
  return true;
}

bool IdleRunLoop::registerTimer(std::uint64_t interval, VSTGUI::X11::ITimerHandler* handler) {
  timers.push_back({handler, interval, steadyMilliseconds() + interval});
  return true;
}

bool IdleRunLoop::unregisterTimer(VSTGUI::X11::ITimerHandler* handler) {
  for (Timer& timer : timers) {
    if (timer.handler == handler) timer.handler = nullptr;
  }
  compact();
  return true;
}

void IdleRunLoop::compact() {
  if (depth > 0) return;
  std::erase_if(handlers, [](const Handler& each) { return each.handler == nullptr; });
  std::erase_if(timers, [](const Timer& timer) { return timer.handler == nullptr; });
}
