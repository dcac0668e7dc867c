// The pages of an Ogg file: their checksums, and the number of the stream that they belong to.
#pragma once

#include <cstdint>
#include <string_view>

// The checksum of a page, taken with its own field as zero.
std::uint32_t pageSum(std::string_view page);

// Gives the one stream of a whole file a number that follows from what the pages carry. The library
// takes a random one, and no run's file would be the same as the one before; a constant would stand
// in the way of who puts two files one after the other.
// descriptor: of a regular file, for reading and writing. Returns the system's error, 0 for none.
int numberStreamByContents(int descriptor);
