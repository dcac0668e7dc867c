// A text that the user has to dismiss, shown by the window itself.
#pragma once

#include <string>

#include "vstgui.h"

// In the middle of the frame, above everything, with the mouse to itself, and the keyboard where no
// other program has it, until a left press anywhere, Return or Escape closes it; it goes with its
// frame. For the systems on which there may be nothing else to show a text with. Throws where
// memory runs out: then there is none. User-interface thread.
void showMessagePanel(VSTGUI::CFrame& frame, const std::string& text);
