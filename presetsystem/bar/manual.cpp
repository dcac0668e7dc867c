// The manual button's work.
#include "presetsystem/bar/manual.h"

#include <cstdio>

#include "platform/xplatalert.h"

void Manual::open() {
  opener.start();
  awaited = true;
}

void Manual::watch() {
  if (!awaited) return;
  const ManualOpener::State state = opener.poll();
  if (state == ManualOpener::State::running) return;
  awaited = false;
  if (state != ManualOpener::State::failed) return;
  char message[1024];
  std::snprintf(message, sizeof message, "Could not open manual file:\n~/\"%s\"", kManualPath);
  XPlatDisplayAlert(message);
}
