// Shows an effect's own window in a plain window of the system.
#pragma once

#include <functional>

#include "host/vst/effect.h"

// Returns when the user closes the window, or once `goesOn`, which is called before each idle pass,
// returns false. The effect is set up, with a callback that has a window, and may be processing on
// another thread. Called on the thread that made the effect. Throws Failure: the effect has no
// window, it does not open, there is no display.
void showEditor(Effect& effect, HostCallback& callback, const std::function<bool()>& goesOn);
