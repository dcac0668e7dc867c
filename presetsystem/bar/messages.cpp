// Shows what waits, one after the other.
#include "presetsystem/bar/messages.h"

// A message leaves the queue when it has been shown: where memory runs out, the next pass tries
// again.
void Messages::watch() {
  if (waiting.empty() || !window.isShown()) return;
  if (!alertRuns) {
    if (!window.isAtRest()) return;
    alert.start(waiting.front().c_str());
    alertRuns = true;
  }
  const Alert::State state = alert.poll();
  if (state == Alert::State::running) return;
  if (state == Alert::State::unavailable) window.showMessage(waiting.front());
  waiting.pop_front();
  alertRuns = false;
  alert.cancel();
}

void Messages::end() {
  waiting.clear();
  alertRuns = false;
  alert.cancel();
}
