// What stands in front of the samples where a WAV goes into a pipe.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "host/sound/soundformat.h"

// frames: stereo; none where nobody knows, and then the sizes are left open in the usual way, as
// they are where they would not fit.
std::string wavStreamHeader(SampleFormat format, int sampleRate,
                            std::optional<std::int64_t> frames);
