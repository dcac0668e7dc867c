// What the desktop tells its X11 programs: how dense the screen is, and how fast a double click.
#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <optional>
#include <string_view>

struct DesktopSettings {
  // Dots an inch of texts, which desktops scale with: 96 where nothing is scaled.
  std::optional<double> dpi;
  std::optional<std::uint32_t> doubleClickTime;  // ms, from one press to the next
};

// As they are now. Empty where nothing is set, or the connection is broken. Three round trips at
// most; whatever other programs have written into the properties is harmless. Any thread.
DesktopSettings desktopSettings(xcb_connection_t* link);

// Xft.dpi of a text of X resources, lines of "name: value".
std::optional<double> dpiOfResources(std::string_view resources);
