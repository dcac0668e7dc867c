// The settings that a desktop's manager publishes for X11 programs (XSETTINGS).
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

// One setting's number, by its full name as in "Xft/DPI". data: the manager's property, which
// any program may have written; bytes that are none of it hold no setting, or those up to the
// damage.
std::optional<std::int32_t> numberOfXSettings(std::span<const unsigned char> data,
                                              std::string_view name);
