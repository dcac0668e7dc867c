// The one run loop and the one X connection that the toolkit has in this process.
#pragma once

#include "editor/base/linux/idlerunloop.h"
#include "vstgui.h"

// Made at the first opening and kept until the toolkit is taken down, so that the connection
// outlives every window: the drawing library aborts the process when a connection is closed and
// another one comes to lie at its address. User-interface thread.
VSTGUI::SharedPointer<IdleRunLoop> sharedRunLoop();  // null before the first opening
// Null where the X server takes no more connections, or the toolkit's has broken since.
VSTGUI::SharedPointer<IdleRunLoop> openSharedRunLoop();
// After a window has been opened: ties the drawing device to the kept connection.
void keepDrawingDevice();
void closeSharedRunLoop();
