// The tag in front of an MP3.
#pragma once

#include <string>
#include <utility>
#include <vector>

// texts: by the library's string types, UTF-8. Returns ID3 of version 2.4; nothing without texts.
// The encoder's own tag knows fewer kinds, cuts a date to its year, and takes Latin-1 alone.
std::string id3Tag(const std::vector<std::pair<int, std::string>>& texts);
