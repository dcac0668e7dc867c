// Tells a loss of the keyboard from what looks like one.
#include "editor/base/linux/focuswatch.h"

#include <utility>

FocusWatch::FocusWatch(std::shared_ptr<OwnConnection> shared) : connection(std::move(shared)) {
  connection->add(this);
}

FocusWatch::~FocusWatch() {
  connection->forget(this);
}

void FocusWatch::focusChanged(const xcb_focus_in_event_t& event) {
  const bool real =
      event.mode == XCB_NOTIFY_MODE_NORMAL || event.mode == XCB_NOTIFY_MODE_WHILE_GRABBED;
  if ((event.response_type & 0x7F) == XCB_FOCUS_IN) {
    if (event.detail == XCB_NOTIFY_DETAIL_POINTER) return;  // only the pointer is in it
    lostToAncestor.reset();
    gone = false;  // taken again: what was lost before, or given back, counts no more
  } else if (real) {
    if (event.detail == XCB_NOTIFY_DETAIL_NONLINEAR) gone = true;
    if (event.detail == XCB_NOTIFY_DETAIL_ANCESTOR) lostToAncestor = Clock::now();
  }
}

// Window managers focus the top-level window first on every click, so a loss to an ancestor counts
// only when the focus has not come back after a moment.
bool FocusWatch::lost() {
  constexpr auto kRefocusTime = std::chrono::milliseconds(150);
  connection->handOutEvents();
  if (lostToAncestor && Clock::now() - *lostToAncestor > kRefocusTime) gone = true;
  if (gone) lostToAncestor.reset();
  return std::exchange(gone, false);
}
