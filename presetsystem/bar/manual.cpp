// The manual button's work.
#include "presetsystem/bar/manual.h"

#include <string>

#include "presetsystem/bar/messages.h"

void Manual::open() {
  opener.start();
  awaited = true;
}

void Manual::watch() {
  if (!awaited) return;
  const ManualOpener::State state = opener.poll();
  if (state == ManualOpener::State::running) return;
  if (state == ManualOpener::State::failed)
    messages.say(std::string("Could not open manual file:\n~/\"") + kManualPath + "\"");
  awaited = false;
}
