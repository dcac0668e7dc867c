// A file that the user saves: it comes complete, or the old one stays.
#pragma once

#include <cstddef>

// Puts the bytes in the place of folder + fileName and on disk; the folder ends in "/". A new file
// beside the old one takes its name when all of it is written, with its owner and mode, but
// without its access lists and extended attributes; links are followed, also one that leads to
// nothing yet. Written where they stand are: what is no regular file, files of several names, and
// those whose folder or owner allows no new one; such a file gets its old content back where the
// new one has no room, and is left alone where it has more than 16 MiB. False: nothing was saved.
// Any thread.
bool saveFile(const char* fileName, const char* folder, const unsigned char* bytes,
              std::size_t size);
