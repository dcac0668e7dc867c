// The one run loop and the one X connection that the toolkit has in this process.
#pragma once

#include <xcb/xcb.h>

#include "editor/base/linux/idlerunloop.h"
#include "vstgui.h"

// Made at the first opening and kept until the toolkit is taken down: its next window opens faster.
// User-interface thread.
VSTGUI::SharedPointer<IdleRunLoop> sharedRunLoop();  // null before the first opening
// Where the connection has broken, or DISPLAY has come to name another server, a new one is made as
// soon as the last window on it has gone: the toolkit has only one. Null until then, and where the
// X server takes no more connections.
VSTGUI::SharedPointer<IdleRunLoop> openSharedRunLoop();
// Whether the toolkit's drawing works in a window that has its screen's own depth and colours.
// Before it opens there.
bool canDrawIn(xcb_window_t window);
// Returns when the server has done what the toolkit has asked for: what comes on another connection
// may overtake it.
void finishRequests();
void closeSharedRunLoop();

// Held for each window of the toolkit's, from before its opening until it has gone. Takes no
// memory.
class RunLoopUse {
 public:
  RunLoopUse() noexcept { ++count; }
  RunLoopUse(const RunLoopUse& /*other*/) noexcept { ++count; }
  RunLoopUse& operator=(const RunLoopUse&) = delete;
  ~RunLoopUse() { --count; }

  static bool any() { return count > 0; }

 private:
  static inline int count = 0;
};
