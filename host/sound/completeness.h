// Whether a sound file is whole, as far as it tells itself.
#pragma once

#include <string>

// The library corrects what a header names by what is there, so that a file that was cut looks like a shorter one. Its
// log tells, but corrects whole files with an odd number of bytes in the same words; so the fields themselves are read:
// the sound's size in WAV (RF64, RIFX), W64, AIFF, 8SVX, CAF and AU, and in Ogg the pages' checksums and the mark of
// the last one. FLAC needs nothing: there the library believes the header, and reading ends before the last frame.
//
// descriptor: a regular file's, its position stays. Answers what is wrong, to be set behind the file's name; nothing
// where all is well, and where the file does not tell: other types, and lengths that a writer into a pipe left open.
std::string damageOf(int descriptor);
