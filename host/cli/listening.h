// The effect's window, and the sound file that is heard meanwhile.
#pragma once

#include "host/cli/console.h"
#include "host/options/arguments.h"
#include "host/play/loop.h"
#include "host/vst/effect.h"

// Returns when the user has closed the window, or a signal asks for the end. effect: set up, with
// `callback`, not started; it is not running afterwards either. loop: null for silence. Throws
// Failure as showEditor, and where the effect cannot play the file.
void showAndPlay(Effect& effect, HostCallback& callback, Loop* loop, const Arguments& arguments,
                 Console& console);
