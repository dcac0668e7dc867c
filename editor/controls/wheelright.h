// Which way a sideways wheel goes.
#pragma once

namespace VSTGUI {
struct MouseWheelEvent;
}

// The event's sideways part in clicks of a wheel, positive to the right: the toolkit hands over
// what the system says, and systems differ in the sign.
double wheelRight(const VSTGUI::MouseWheelEvent& event);
