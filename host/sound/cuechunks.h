// Cues and loops as chunks, where the library writes none, leaves the names out or mixes them up.
#pragma once

#include "host/sound/metadata.h"

// The names of cues in a WAV, which numbers them as they are here. None where none has a name.
std::optional<KeptChunk> cueNames(const std::vector<SF_CUE_POINT>& cues);
// The ranges of keys and velocities of a WAV, which its sampler data leave out, and with which the
// library does nothing.
KeptChunk keyRange(const SF_INSTRUMENT& instrument);
void takeKeyRange(const std::vector<KeptChunk>& chunks, std::optional<SF_INSTRUMENT>& instrument);
// AIFF's markers without those of loops, which the library takes for the first ones.
std::vector<SF_CUE_POINT> cuesAmongMarkers(const std::vector<KeptChunk>& chunks);
// AIFF's markers, the loops' in front, and its instrument, whose loops lie between two of them.
std::vector<KeptChunk> markers(const std::vector<SF_CUE_POINT>& cues,
                               const std::optional<SF_INSTRUMENT>& instrument);
