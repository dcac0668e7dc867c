// The pages of an Ogg file: where they are, their checksums, and the number of the stream that they
// belong to.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "host/sound/filebytes.h"

namespace ogg {

inline constexpr std::size_t kHead = 27;      // bytes, the last of which counts the segments
inline constexpr std::size_t kSumField = 22;  // offset of the page's checksum, 4 bytes

bool isPage(std::string_view head);

// Returns the whole page that begins there, which lives in the buffer; none where no page begins or
// the file has not all of it.
std::string_view pageAt(const FileBytes& file, std::int64_t offset, std::vector<char>& buffer);

// The sizes of the segments that follow, one a byte.
std::string_view segmentsOf(std::string_view page);

// The checksum of a page, taken with its own field as zero.
std::uint32_t pageSum(std::string_view page);

// Gives the one stream of a whole file a number that follows from what the pages carry. The library
// takes a random one, and no run's file would be the same as the one before; a constant would stand
// in the way of who puts two files one after the other.
// descriptor: of a regular file, for reading and writing. Returns the system's error, 0 for none.
int numberStreamByContents(int descriptor);

}  // namespace ogg
