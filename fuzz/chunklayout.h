// What the effect hands out as its chunk, checked byte for byte against the published layout.
#pragma once

#include "effect/trelvan.h"
#include "presetsystem/image/presetimage.h"

namespace fuzz {

// A copy of effGetChunk's answer, which must be a whole chunk of the effect's bank and selection.
// Also asks for every preset's name, into buffers that end where a name may end.
presetimage::Bytes validChunkOf(Trelvan& effect);

}  // namespace fuzz
