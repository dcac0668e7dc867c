// What an output could not keep of what its input said beside the sound.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/sound/metadata.h"

// input: what it said; written: what the complete output says; output: the kind of chunks that it
// can have, if any. Returns names for a person, none where all is there. The program that made the
// input does not count.
std::vector<std::string> notKept(const Metadata& input, const Metadata& written,
                                 std::optional<ChunkFamily> output);
