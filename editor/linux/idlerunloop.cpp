// Pumps the toolkit's handlers and timers.
#include "editor/linux/idlerunloop.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "editor/linux/forgottenreplies.h"
#include "lib/platform/linux/x11platform.h"

namespace {

std::uint64_t now() {
  const auto sinceStart = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::milliseconds>(sinceStart).count());
}

}  // namespace

void IdleRunLoop::pump() {
  ++depth;
  {
    const ForgottenReplies replies(VSTGUI::X11::RunLoop::instance().getXcbConnection());
    // Always asked, without a look at the socket: events may wait in the connection's memory. By index, since both
    // lists grow meanwhile.
    for (std::size_t i = 0; i < handlers.size(); ++i) {
      if (handlers[i] != nullptr) handlers[i]->onEvent();
    }
  }
  const std::uint64_t time = now();
  const std::size_t known = timers.size();  // one started by another waits for the next pump
  for (std::size_t i = 0; i < known; ++i) {
    if (timers[i].handler == nullptr || timers[i].due > time) continue;
    timers[i].due = time + timers[i].interval;
    timers[i].handler->onTimer();
  }
  leave();
}

void IdleRunLoop::during(const std::function<void()>& work) {
  ++depth;
  work();
  leave();
}

void IdleRunLoop::leave() {
  if (--depth > 0) return;
  compact();
  for (const auto& action : std::exchange(afterwards, {})) action();
}

void IdleRunLoop::runOutsidePump(std::function<void()> action) {
  if (depth > 0) {
    afterwards.push_back(std::move(action));
  } else {
    action();
  }
}

bool IdleRunLoop::registerEventHandler(int /*fd*/, VSTGUI::X11::IEventHandler* handler) {
  handlers.push_back(handler);
  return true;
}

// With the last handler the toolkit forgets this loop, and can no longer take its late timers away.
bool IdleRunLoop::unregisterEventHandler(VSTGUI::X11::IEventHandler* handler) {
  std::replace(handlers.begin(), handlers.end(), handler, static_cast<VSTGUI::X11::IEventHandler*>(nullptr));
  const bool none = std::all_of(handlers.begin(), handlers.end(), [](auto* left) { return left == nullptr; });
  if (none) {
    for (Timer& timer : timers) timer.handler = nullptr;
  }
  compact();
  return true;
}

bool IdleRunLoop::registerTimer(std::uint64_t interval, VSTGUI::X11::ITimerHandler* handler) {
  timers.push_back({handler, interval, now() + interval});
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
  std::erase(handlers, nullptr);
  std::erase_if(timers, [](const Timer& timer) { return timer.handler == nullptr; });
}
