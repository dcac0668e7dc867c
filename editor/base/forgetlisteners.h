// Takes the listeners off the controls of a window that closes.
#pragma once

#include "vstgui.h"

// A control may live longer than its window, and than who listens to it: the system's own menu,
// where the list is one, runs a loop in which the host may close the window or end the instance,
// and tells afterwards what was chosen. User-interface thread.
inline void forgetListeners(VSTGUI::CViewContainer& views) {
  views.forEachChild([](VSTGUI::CView* child) {
    if (VSTGUI::CViewContainer* container = child->asViewContainer()) forgetListeners(*container);
    if (auto* control = dynamic_cast<VSTGUI::CControl*>(child)) control->setListener(nullptr);
  });
}
