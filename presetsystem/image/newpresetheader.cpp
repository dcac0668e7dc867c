// The image header's bytes, and the byte order that its unique ID tells.
#include "presetsystem/image/newpresetheader.h"

#include "presetsystem/image/bytereader.h"
#include "presetsystem/image/bytewriter.h"

newpresetheader newpresetheader::read(std::span<const unsigned char> data) {
  ByteReader in(data, false);
  newpresetheader header;
  header.uniqueID = in.int32();
  header.kind = static_cast<ImageKind>(in.uint8());
  header.formatVersion = in.int32();
  header.parameterCount = in.int32();
  header.entryCount = in.int32();
  header.currentPreset = in.int32();
  header.dataSize = in.int32();
  for (std::int32_t& word : header.reserved) word = in.int32();
  return header;
}

void newpresetheader::write(ByteWriter& out) const {
  out.int32(uniqueID);
  out.uint8(static_cast<std::uint8_t>(kind));
  out.int32(formatVersion);
  out.int32(parameterCount);
  out.int32(entryCount);
  out.int32(currentPreset);
  out.int32(dataSize);
  for (const std::int32_t word : reserved) out.int32(word);
}

void byteSwapHeader(newpresetheader* header) {
  const auto swap = [](std::int32_t& word) {
    word = static_cast<std::int32_t>(reversedBytes(static_cast<std::uint32_t>(word)));
  };
  swap(header->formatVersion);
  swap(header->parameterCount);
  swap(header->entryCount);
  swap(header->currentPreset);
  swap(header->dataSize);
  for (std::int32_t& word : header->reserved) swap(word);
}

void byteSwapHeader(std::span<unsigned char, newpresetheader::kSize> bytes) {
  newpresetheader header = newpresetheader::read(bytes);
  byteSwapHeader(&header);
  ByteWriter out(bytes);
  header.write(out);
}

ByteOrder byteOrderOf(std::int32_t stored, std::int32_t uniqueID) {
  if (stored == uniqueID) return ByteOrder::native;
  const auto reversed =
      static_cast<std::int32_t>(reversedBytes(static_cast<std::uint32_t>(uniqueID)));
  return stored == reversed ? ByteOrder::swapped : ByteOrder::foreign;
}
