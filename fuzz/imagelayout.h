// Where things stand in images and chunks, told without the readers, and the same data in the other
// byte order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "presetsystem/image/presetimage.h"

namespace fuzz {

// The 32-bit word at data[at], of a machine of this or of the other byte order. data: at + 4 bytes
// or more.
std::int32_t wordAt(std::span<const unsigned char> data, std::size_t at, bool swapped);
void reverseWordAt(std::span<unsigned char> data, std::size_t at);
// Every whole word from data[at] on.
void reverseWordsFrom(std::span<unsigned char> data, std::size_t at);

// What of the entries the header names. dataSize: as it stands there; negative names nothing.
std::span<const unsigned char> namedPart(std::span<const unsigned char> entries,
                                         std::int32_t dataSize);

struct EntryPlace {
  std::int32_t kind;  // 0 name, 1 parameter value, 2 MIDI assignment
  std::int32_t preset;
  std::span<const unsigned char> payload;
};
// The entries that are whole, up to `count` of them and to the first that is not. dataSize: as the
// header names it.
std::vector<EntryPlace> entryPlaces(std::span<const unsigned char> entries, std::int32_t count,
                                    std::int32_t dataSize, bool swapped);

// An image header, unique ID included. data: 41 bytes or more.
void reverseHeader(std::span<unsigned char> data);
// Entry heads and the words of parameter and MIDI entries, as far as whole entries go; names stay.
// swapped: the order in which they stand now.
void reverseEntries(std::span<unsigned char> entries, bool swapped);

// Whole images and current chunks, written in this machine's order.
presetimage::Bytes inOtherOrder(presetimage::Bytes image);
presetimage::Bytes chunkInOtherOrder(presetimage::Bytes chunk);

}  // namespace fuzz
