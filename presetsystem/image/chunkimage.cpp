// Wraps the bank image for the host, tells the two chunk generations apart, and reads the old one.
#include "presetsystem/image/chunkimage.h"

#include <algorithm>

#include "presetsystem/image/bytereader.h"
#include "presetsystem/image/bytewriter.h"

namespace chunkimage {

Prefix readPrefix(std::span<const unsigned char, kPrefixSize> data, std::int32_t uniqueID) {
  ByteReader native(data, false);
  const std::int32_t tag = native.int32();
  const ByteOrder order = byteOrderOf(native.int32(), uniqueID);
  if (order != ByteOrder::swapped) return {tag, order};
  return {ByteReader(data, true).int32(), order};
}

presetimage::Bytes wrapBank(const presetimage::Bytes& bankImage, std::int32_t uniqueID) {
  ByteWriter out;
  out.int32(kFormatTag);
  out.int32(uniqueID);
  out.bytes(bankImage.data(), bankImage.size());
  return out.take();
}

OldReading readOldChunk(std::span<const unsigned char, kOldSize> data, std::int64_t byteSize, bool swapped,
                        const presetimage::DummySlots& dummies, const ACombProgram& defaultPreset,
                        presetimage::Bank& bank) {
  ByteReader header(data, swapped);
  header.skip(kPrefixSize);
  const std::int32_t count = header.int32();
  const int select = presetimage::presetToSelect(header.int32());
  if (count <= 0) return {true, select};  // a count below 0 names no records either

  // The stride is not stored: it follows from the size, at most one record's share of it, in whole floats.
  const std::int64_t share = std::max<std::int64_t>(byteSize - static_cast<std::int64_t>(kOldHeaderSize), 0) / count;
  const std::int64_t floats = (share - ACombProgram::kNameSize) / 4;
  if (share < ACombProgram::kNameSize) return {true, select};  // not even the names are there
  const auto stride = static_cast<std::size_t>(4 * floats + ACombProgram::kNameSize);
  const int floatsTaken = static_cast<int>(std::min<std::int64_t>(floats, presetimage::kParameterCount));
  const std::size_t taken = 4 * static_cast<std::size_t>(floatsTaken) + ACombProgram::kNameSize;

  std::span<const unsigned char> records = std::span<const unsigned char>(data).subspan(kOldHeaderSize);
  for (int record = 0; record < count && record < presetimage::kPresetCount && records.size() >= taken; ++record) {
    ACombProgram& preset = bank[static_cast<std::size_t>(record)];
    preset = defaultPreset;
    const auto reading = presetimage::readOldPreset(records.first(taken), swapped, floatsTaken, dummies, preset);
    if (reading != presetimage::Reading::done) return {false, 0};
    records = records.subspan(std::min(stride, records.size()));
  }
  return {true, select};
}

}  // namespace chunkimage
