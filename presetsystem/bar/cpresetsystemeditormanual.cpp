// The manual button's work.
#include <cstdio>

#include "platform/openmanual.h"
#include "platform/xplat.h"
#include "presetsystem/bar/cpresetsystemeditor.h"

void CPresetSystemEditor::openManual() {
  manual.start();
  manualAwaited = true;
}

void CPresetSystemEditor::watchManual() {
  if (!manualAwaited) return;
  const ManualOpener::State state = manual.poll();
  if (state == ManualOpener::State::running) return;
  manualAwaited = false;
  if (state != ManualOpener::State::failed) return;
  char message[1024];
  std::snprintf(message, sizeof message, "Could not open manual file:\n~/\"%s\"", kManualPath);
  XPlatDisplayAlert(message);
}
