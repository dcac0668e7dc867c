// The host's chunk as bytes: the prefix in front of the bank image, and the old fixed layout that is still read.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "presetsystem/image/presetimage.h"

namespace chunkimage {

constexpr std::int32_t kFormatTag = 0x02000000;
constexpr std::int32_t kOldFormatTag = 0x01000000;
constexpr std::size_t kPrefixSize = 8;  // format tag and unique ID
constexpr std::size_t kSize = kPrefixSize + presetimage::kBankImageSize;
constexpr std::size_t kEntriesOffset = kPrefixSize + newpresetheader::kSize;
static_assert(kSize == 10545 && kEntriesOffset == 49);

constexpr std::size_t kOldHeaderSize = 32;
constexpr std::size_t kOldSize = kOldHeaderSize + presetimage::kPresetCount * sizeof(ACombProgram);  // taken in at most
static_assert(kOldSize == 1440);

struct Prefix {
  std::int32_t formatTag;  // in this machine's byte order
  ByteOrder order;
};
// data: the first 8 bytes of a chunk.
Prefix readPrefix(std::span<const unsigned char, kPrefixSize> data, std::int32_t uniqueID);

// A whole current chunk around a bank image.
presetimage::Bytes wrapBank(const presetimage::Bytes& bankImage, std::int32_t uniqueID);

struct OldReading {
  bool complete;       // false: a value outside 0..1 was met; the bank keeps what was read up to it
  int presetToSelect;  // 0..31, if complete
};
// data: exactly what was taken in, zero-filled. byteSize: the size the host named, which tells the records' stride.
OldReading readOldChunk(std::span<const unsigned char, kOldSize> data, std::int64_t byteSize, bool swapped,
                        const presetimage::DummySlots& dummies, const ACombProgram& defaultPreset,
                        presetimage::Bank& bank);

}  // namespace chunkimage
