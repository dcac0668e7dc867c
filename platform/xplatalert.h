// A warning that the user has to dismiss.
#pragma once

// Shows a warning with one button "OK" and returns when the user has dismissed it. User-interface
// thread only. Without a display, or without a program that can show it, it returns at once.
void XPlatDisplayAlert(const char* message);
