// The header that opens every preset, bank and MIDI-map image and the bank inside the host's chunk.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "presetsystem/image/acombprogram.h"

class ByteReader;
class ByteWriter;

// What an image holds; the byte after the unique ID. The old kinds are read and never written.
enum class ImageKind : std::uint8_t {
  midiMap = 12,
  oldPreset = 33,  // '!'
  preset = 34,     // '"'
  oldBank = 55,    // '7'
  bank = 56,       // '8'
};

// In a file: 41 bytes without padding, fields in this order.
struct newpresetheader {
  static constexpr std::size_t kSize = 41;
  static constexpr std::size_t kKindOffset = 4;
  static constexpr std::int32_t kFormatVersion = 0x01090900;

  std::int32_t uniqueID = 0;
  ImageKind kind = ImageKind::preset;
  std::int32_t formatVersion = kFormatVersion;
  std::int32_t parameterCount = ACombProgram::kParameterCount;
  std::int32_t entryCount = 0;
  std::int32_t currentPreset = 0;  // bank only
  std::int32_t dataSize = 0;       // bytes of entries after the header: readers look no further
  std::array<std::int32_t, 4> reserved{};

  // The words as they stand in `data`, in this machine's byte order; absent bytes read as zero.
  static newpresetheader read(std::span<const unsigned char> data);
  void write(ByteWriter& out) const;
};

// Reverses the bytes of every word but the unique ID, by which the byte order was told.
void byteSwapHeader(newpresetheader* header);
// The same for the header's bytes where they lie.
void byteSwapHeader(std::span<unsigned char, newpresetheader::kSize> bytes);

enum class ByteOrder { native, swapped, foreign };

// How data was written whose unique ID reads `stored` here; foreign: by another plug-in.
ByteOrder byteOrderOf(std::int32_t stored, std::int32_t uniqueID);
