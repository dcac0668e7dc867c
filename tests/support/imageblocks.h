// What the writers of images write, each as a block of its own.
#pragma once

#include <cstdint>
#include <span>

#include "presetsystem/image/bytewriter.h"
#include "presetsystem/image/image.h"

namespace presetimage {

inline Bytes writeBank(const Bank& bank, std::int32_t uniqueID, std::int32_t currentPreset,
                       const DummySlots& dummies, InvalidParameters& repaired) {
  Bytes block(kBankImageSize);
  block.resize(writeBank(std::span<unsigned char, kBankImageSize>(block), bank, uniqueID,
                         currentPreset, dummies, repaired));
  return block;
}

inline Bytes writePreset(const ACombProgram& preset, std::int32_t uniqueID,
                         const DummySlots& dummies) {
  Bytes block(kPresetImageSize);
  block.resize(
      writePreset(std::span<unsigned char, kPresetImageSize>(block), preset, uniqueID, dummies));
  return block;
}

inline Bytes writeMidiMap(const ParameterValues& values, std::int32_t uniqueID,
                          const DummySlots& dummies) {
  Bytes block(kMidiMapImageSize);
  block.resize(
      writeMidiMap(std::span<unsigned char, kMidiMapImageSize>(block), values, uniqueID, dummies));
  return block;
}

// A current chunk around a bank image of any size.
inline Bytes wrapBank(const Bytes& bankImage, std::int32_t uniqueID) {
  Bytes chunk(kChunkPrefixSize);
  ByteWriter prefix(chunk);
  prefix.int32(kChunkTag);
  prefix.int32(uniqueID);
  chunk.insert(chunk.end(), bankImage.begin(), bankImage.end());
  return chunk;
}

}  // namespace presetimage
