// X11: button 7, to the right, is a click above zero.
#include "editor/controls/wheelright.h"

#include "lib/events.h"

double wheelRight(const VSTGUI::MouseWheelEvent& event) {
  return event.deltaX;
}
