// The host's chunk: the bank image behind an eight-byte prefix, and the old layout that is still read.
#include <algorithm>
#include <cstring>
#include <limits>
#include <memory>

#include "presetsystem/bar/cpresetsystemeditor.h"
#include "presetsystem/image/bytewriter.h"
#include "presetsystem/store/cpresetsystemeffect.h"

VstInt32 CPresetSystemEffect::getChunk(void** data, bool /*isPreset*/) {
  CPresetSystemEditor* images = presetEditor();
  if (images == nullptr) return 0;
  char* image = nullptr;
  const long length = images->BankToBuffer(&image);
  const std::unique_ptr<char[]> owned(image);
  if (image == nullptr || length <= 0 || static_cast<std::size_t>(length) > presetimage::kBankImageSize) return 0;

  ByteWriter prefix;
  prefix.int32(chunkimage::kFormatTag);
  prefix.int32(getUniqueID());
  const presetimage::Bytes prefixBytes = prefix.take();
  chunkBuffer.fill(0);
  std::copy(prefixBytes.begin(), prefixBytes.end(), chunkBuffer.begin());
  std::memcpy(chunkBuffer.data() + chunkimage::kPrefixSize, image, static_cast<std::size_t>(length));
  *data = chunkBuffer.data();
  return static_cast<VstInt32>(static_cast<std::size_t>(length) + chunkimage::kPrefixSize);
}

// A byteSize above 0 bounds every read. One that says nothing (0 or below) leaves the header's own data size, and no
// chunk of ours is longer than kSize.
VstInt32 CPresetSystemEffect::setChunk(void* data, VstInt32 byteSize, bool isPreset) {
  CPresetSystemEditor* images = presetEditor();
  if (data == nullptr || images == nullptr) return kChunkRefused;
  const auto size = byteSize > 0 ? static_cast<std::size_t>(byteSize) : chunkimage::kSize;
  if (size < chunkimage::kPrefixSize) return kChunkRefused;

  auto* bytes = static_cast<unsigned char*>(data);
  const chunkimage::Prefix prefix = chunkimage::readPrefix(
      std::span<const unsigned char, chunkimage::kPrefixSize>(bytes, chunkimage::kPrefixSize), getUniqueID());
  if (prefix.order == ByteOrder::foreign) return kChunkRefused;
  const bool swapped = prefix.order == ByteOrder::swapped;
  if (prefix.formatTag == chunkimage::kOldFormatTag) return setChunkOld(data, byteSize, isPreset, swapped);
  if (prefix.formatTag != chunkimage::kFormatTag || size < chunkimage::kEntriesOffset) return kChunkRefused;

  unsigned char* headerBytes = bytes + chunkimage::kPrefixSize;
  newpresetheader header = newpresetheader::read({headerBytes, newpresetheader::kSize});
  if (swapped) {
    byteSwapHeader(&header);
    ByteWriter swappedHeader;  // the host's copy is turned with it
    header.write(swappedHeader);
    const presetimage::Bytes turned = swappedHeader.take();
    std::copy(turned.begin(), turned.end(), headerBytes);
  }
  const std::size_t room = std::min<std::size_t>(size - chunkimage::kEntriesOffset,
                                                 static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max()));
  if (byteSize > 0 || header.dataSize > static_cast<std::int32_t>(room)) {
    header.dataSize = static_cast<std::int32_t>(room);
  }
  images->BufferToBank(reinterpret_cast<char*>(bytes + chunkimage::kEntriesOffset), &header, swapped);
  return 0;
}

VstInt32 CPresetSystemEffect::setChunkOld(void* data, VstInt32 byteSize, bool /*isPreset*/, bool swapped) {
  if (data == nullptr) return kChunkRefused;
  oldChunkBuffer.fill(0);
  const std::size_t given = byteSize > 0 ? static_cast<std::size_t>(byteSize) : 0;
  std::memcpy(oldChunkBuffer.data(), data, std::min(given, oldChunkBuffer.size()));
  const chunkimage::OldReading reading =
      chunkimage::readOldChunk(oldChunkBuffer, byteSize, swapped, oldDummySlots(), defaultPreset, *presets);
  if (!reading.complete) return kChunkRefused;
  setPresetNo(reading.presetToSelect);
  return 0;
}
