// Records to read into, and what can be said of records: shared by all fuzz targets.
#pragma once

#include <cstdint>
#include <span>

#include "plugin/vst24.h"
#include "presetsystem/image/image.h"
#include "tests/support/imageblocks.h"

namespace fuzz {

constexpr std::int32_t kUniqueID = vstFourChars('T', 'l', 'v', 'n');

// All 32 presets differ from each other and from the default record in every field; names are
// short, long and full.
presetimage::Bank sampleBank();
ACombProgram sampleDefault();

// Bit by bit, names to their last byte.
bool identical(const ACombProgram& a, const ACombProgram& b);
bool identical(const presetimage::Bank& a, const presetimage::Bank& b);

// All values lie in 0..1; false for a NaN.
bool normalised(const ACombProgram& preset);
bool normalised(const presetimage::Bank& bank);

// A current image from bytes: its header in this machine's byte order, and a copy of what stands
// after it that ends where the data ends, so that a look past the end is a look past
// the heap block.
struct Image {
  newpresetheader header;
  bool swapped;
  presetimage::Bytes entries;
};
// Whatever the bytes' own unique ID and kind, they are taken as this plug-in's bank, in the order
// that the ID tells where it is ours; the header keeps what it names of the data. data: 41
// bytes or more.
Image imageFrom(std::span<const unsigned char> data);

// Which slots are placeholders, so that inputs steer it too: the low five bits.
presetimage::DummySlots dummiesFrom(std::uint32_t bits);

}  // namespace fuzz
