// The pages of an Ogg file, whose checksums no mutation gets right.
#pragma once

#include <cstdint>
#include <span>

namespace fuzz {

// Goes from page to page as long as there are whole ones, puts each one's checksum right, and
// leaves everything else as it is.
void putPageSumsRight(std::span<unsigned char> file);
// Makes all of them one stream's, of this number. The library takes a random one.
void setStreamNumber(std::span<unsigned char> file, unsigned char number);

}  // namespace fuzz
