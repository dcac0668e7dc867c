// The pointer for one view alone, as the toolkit's own menu takes it.
#pragma once

#include "lib/cframe.h"
#include "lib/platform/common/genericoptionmenu.h"
#include "lib/platform/iplatformframe.h"

// From taking to giving back, presses outside the window, in the host's own area, reach the frame
// too. Ends with the window at the latest. frame: not null, open or not. User-interface thread.
inline void grabPointer(VSTGUI::CFrame* frame, bool take) {
  auto* grabber = dynamic_cast<VSTGUI::IGenericOptionMenuListener*>(frame->getPlatformFrame());
  if (grabber == nullptr) return;
  if (take) {
    grabber->optionMenuPopupStarted();
  } else {
    grabber->optionMenuPopupStopped();
  }
}
