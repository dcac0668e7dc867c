// The seam of the preset menu's list: how its entries are shown differs from system to system.
#pragma once

#include <optional>

#include "vstgui.h"

class CPresetMenu;

// Shows the menu's entries with the current one marked. The menu is in a frame, and hears of the
// outcome later, if at all: through choose where the list is our own, as any option menu where it
// is the toolkit's. User-interface thread. press: where a mouse button went down on the menu, in
// the frame's coordinates, and is still held; none: a key opened it.
void openPresetPopup(CPresetMenu* menu, const std::optional<VSTGUI::CPoint>& press);
