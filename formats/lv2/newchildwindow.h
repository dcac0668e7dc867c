// Finds the window that an effect opens in its host's.
#pragma once

#include <cstdint>
#include <vector>

// Of the X server, or whatever the system has; 0: none.
using WindowId = std::uintptr_t;

std::vector<WindowId> childWindows(WindowId parent);  // none where the system does not tell

// The child that was not among those `before`.
WindowId newChildWindow(WindowId parent, const std::vector<WindowId>& before);
