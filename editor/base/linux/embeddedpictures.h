// The bundle's pictures inside the module, for one that somebody has copied without its bundle.
#pragma once

#include <span>
#include <string_view>

// The bytes of the PNG file that the bundle has under that name; none where it has no such file.
// They last as long as the code. Any thread.
std::span<const unsigned char> embeddedPicture(std::string_view name);
