// What the preset bar's tooltips say.
#pragma once

#include <cstdint>
#include <string>

// One or two lines, the second one after a line feed; empty for a tag that has none.
std::string barTip(std::int32_t tag);
