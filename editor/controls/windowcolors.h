// The colours that several parts of the window draw in, as in its pictures.
#pragma once

#include "vstgui.h"

inline constexpr VSTGUI::CColor kFieldColor(189, 207, 218);      // behind the name, list, message
inline constexpr VSTGUI::CColor kSelectionColor(140, 175, 200);  // in a field: its own, darker
inline constexpr VSTGUI::CColor kEdgeColor(79, 102, 119);        // around what lies over the window
inline constexpr VSTGUI::CColor kMarkColor(45, 45, 120);         // what is marked or pressed
