// What tags a file without chunks has that the library does not show.
#pragma once

#include <string>
#include <vector>

#include "host/sound/filebytes.h"

// Of FLAC, Ogg and ID3: "picture", "text BPM" and the like. What the library returns as a string is
// left out.
std::vector<std::string> unknownTags(const FileBytes& file);
