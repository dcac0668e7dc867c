// The file of an effect's state, which tells whose it is.
#pragma once

#include <span>
#include <string>

#include "host/vst/effect.h"

// A chunk is a lump of bytes, and most effects take another's without a word, or crash. So a line
// with the effect's number and name stands before it.
Effect::Bytes namedState(Effect& effect);

// The chunk in such a file, or the whole file where no line stands before it: another program
// saved it. source: what to name in a Failure, which is thrown where the state is another
// effect's.
std::span<const unsigned char> chunkOf(const Effect::Bytes& file, Effect& effect,
                                       const std::string& source);
