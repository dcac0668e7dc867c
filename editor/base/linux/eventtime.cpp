// Counts the X server's milliseconds on past their 32 bits.
#include "editor/base/eventtime.h"

#include "editor/base/linux/desktopsettings.h"
#include "editor/base/linux/handledevent.h"
#include "editor/base/linux/sharedrunloop.h"
#include "editor/base/steadytime.h"
#include "lib/platform/linux/x11platform.h"

namespace {

int depth = 0;             // events within events, where a host idles from inside a callback
std::uint64_t latest = 0;  // ms, of an event

}  // namespace

HandledEvent::HandledEvent(std::uint32_t serverTime) {
  ++depth;
  if (serverTime == 0) return;  // a program has sent it, and does not say when
  // events of two kinds may come a little out of order
  const auto step = static_cast<std::int32_t>(serverTime - static_cast<std::uint32_t>(latest));
  latest += static_cast<std::uint64_t>(static_cast<std::int64_t>(step));
}

HandledEvent::~HandledEvent() {
  --depth;
}

std::uint64_t eventMilliseconds() {
  return depth > 0 ? latest : steadyMilliseconds();
}

std::uint32_t longestDoubleClick() {
  constexpr std::uint32_t kUsual = 400;  // ms, where no desktop says anything
  if (sharedRunLoop() == nullptr) return kUsual;
  const DesktopSettings settings =
      desktopSettings(VSTGUI::X11::RunLoop::instance().getXcbConnection());
  return settings.doubleClickTime.value_or(kUsual);
}
