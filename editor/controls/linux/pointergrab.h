// The pointer for one view alone.
#pragma once

#include "editor/base/linux/windowinput.h"
#include "vstgui.h"

// From taking to giving back, presses outside the window, in the host's own area, reach the frame
// too. Ends with the window at the latest. frame: not null, open or not. User-interface thread.
inline void grabPointer(VSTGUI::CFrame* frame, bool take) {
  if (WindowInput* input = WindowInput::of(frame)) input->takePointer(take);
}
