// macOS: what moves the content to the left, as a turn to the right does, is below zero.
#include "editor/controls/wheelright.h"

#include "lib/events.h"

double wheelRight(const VSTGUI::MouseWheelEvent& event) {
  return -event.deltaX;
}
