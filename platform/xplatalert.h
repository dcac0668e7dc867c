// A warning that the user has to dismiss.
#pragma once

// Shows a warning with one button "OK". User-interface thread only. It returns when the user has
// dismissed it where that is the system's way (macOS), and at once where it would hold the host up
// (Linux), or where there is nothing to show it with. Those that go on meanwhile and have to know
// when it is gone use `Alert`.
void XPlatDisplayAlert(const char* message);
