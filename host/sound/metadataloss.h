// What an output could not keep of what its input said beside the sound.
#pragma once

#include <string>
#include <vector>

#include "host/sound/metadata.h"
#include "host/sound/soundformat.h"

// input: what it said; written: what the complete output says. Returns names for a person, none
// where all is there. The program that made the input does not count.
std::vector<std::string> notKept(const Metadata& input, const Metadata& written, FileType type);
