// Asks the window that shows the frame.
#include "editor/base/keyboard.h"

#include "editor/base/linux/windowinput.h"
#include "vstgui.h"

void takeKeyboard(VSTGUI::CFrame* frame, bool take) {
  if (WindowInput* input = WindowInput::of(frame)) input->takeKeyboard(take);
}

bool isKeyboardWithHost(const VSTGUI::CFrame* frame) {
  const WindowInput* input = WindowInput::of(frame);
  return input != nullptr && input->isKeyboardWithHost();
}
