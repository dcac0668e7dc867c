// Whether a sound file is whole, as far as the file says itself.
#pragma once

#include <cstddef>
#include <cstdint>
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

// Whether it is an MP3 whose first frame, which holds no sound then, names how many follow.
bool namesMp3Frames(int descriptor);

// Whether a size is what a writer names that cannot go back and does not know the length.
// sizeBytes: of the size itself, in the header.
bool isLeftOpen(std::uint64_t size, std::size_t sizeBytes);
// Empty where as many bytes of sound are there as the header names, or more.
std::string shortfallText(std::uint64_t named, std::uint64_t there);
