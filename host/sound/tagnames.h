// What tags a file has that the library does not show.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/sound/filebytes.h"

// Of FLAC, Ogg and ID3: "picture", "text BPM" and the like. What the library returns as a string is
// left out.
std::vector<std::string> unknownTags(const FileBytes& file);

// The same of the chunk in which CAF has its texts.
std::vector<std::string> unknownTexts(std::string_view infoChunk);
