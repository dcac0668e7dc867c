// The seam of the keyboard: the host's, but for a text that is typed and what covers the window.
#pragma once

namespace VSTGUI {
class CFrame;
}

// Takes the keyboard for the frame's window, until it is given back as often as it was taken. Then
// whoever had it has it again: the host's transport obeys the space bar. Ends with the window at
// the latest. frame: not null, open or not. On the window's thread.
void takeKeyboard(VSTGUI::CFrame* frame, bool take);
// Whether the host's window or one inside it has the keyboard, or the pointer's: what comes up
// unasked takes it from no other program. frame: open. On the window's thread.
bool isKeyboardWithHost(const VSTGUI::CFrame* frame);
