// Shows names at once on the window's thread, and at the next pass for all others.
#include "presetsystem/bar/barnames.h"

#include <new>

#include "presetsystem/bar/presetbar.h"

void BarNames::idle() {
  if (refreshWanted.exchange(false)) refresh();
}

void BarNames::presetsChanged() {
  if (onWindowThread()) {
    refresh();
  } else {
    refreshWanted = true;
  }
}

void BarNames::nameChanged(const char* name) {
  if (onWindowThread()) {
    bar.showName(name);
    bar.retitleCurrent(name);
  } else {
    refreshWanted = true;
  }
}

// What has been taken over is not given back because the bar has no memory to show it: a
// later pass does.
void BarNames::refresh() {
  try {
    bar.refresh(*effect);
  } catch (const std::bad_alloc&) {
    refreshWanted = true;
  }
}
