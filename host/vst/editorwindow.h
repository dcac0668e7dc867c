// Shows an effect's own window in a plain window of the system.
#pragma once

#include <string>

#include "host/vst/effect.h"

// Returns when the user closes the window. The effect is set up, with a callback that has a window;
// `title` is shown. Called on the thread that made the effect. Throws Failure: the effect has no
// window, it does not open, there is no display.
void showEditor(Effect& effect, HostCallback& callback, const std::string& title);
