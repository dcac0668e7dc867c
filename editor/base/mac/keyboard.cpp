// The application gives the keyboard to the view that was clicked, and a text entry has a window of
// its own.
#include "editor/base/keyboard.h"

#include "vstgui.h"

void takeKeyboard(VSTGUI::CFrame* /*frame*/, bool /*take*/) {}
bool isKeyboardWithHost(const VSTGUI::CFrame* /*frame*/) {
  return true;
}
