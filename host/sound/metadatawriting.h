// Gives an output what its input said beside the sound, as far as its type can hold it.
#pragma once

#include <sndfile.h>

#include <optional>

#include "host/sound/metadata.h"
#include "host/sound/soundformat.h"

// What such a file is made of; none where the library takes no chunks.
std::optional<ChunkFamily> chunksOf(FileType type);
// file: opened for writing, before any sample; no MP3, whose tag stands in front. Chunks go as they
// are into a file of their own kind; else what the library knows of them is written anew.
void writeMetadata(SNDFILE* file, FileType type, const Metadata& data);
