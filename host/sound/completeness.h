// Whether a sound file is whole, as far as the file says itself.
#pragma once

#include <string>

// The library corrects what a header names by what is there, so that a file that was cut looks like
// a shorter one. Its log says so, but reports whole files with an odd number of bytes in the same
// words; so the fields themselves are read: the sound's size in WAV (RF64, RIFX), W64, AIFF, 8SVX,
// CAF and AU, and in Ogg the pages' checksums and the mark of the last one. FLAC needs nothing:
// there the library believes the header, and reading ends before the last frame.
//
// descriptor: a regular file's, its position stays. Returns what is wrong, to be put after the
// file's name; nothing where all is well, and where the file does not say: other types, and lengths
// that a writer into a pipe left open.
std::string damageOf(int descriptor);
