// Preset, bank and MIDI-map images: records to bytes and back, without an effect, a file or a window.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "presetsystem/image/acombprogram.h"
#include "presetsystem/image/newpresetheader.h"

namespace presetimage {

constexpr int kPresetCount = 32;
constexpr int kParameterCount = ACombProgram::kParameterCount;

// Sizes in bytes.
constexpr std::size_t kNameEntrySize = 168;
constexpr std::size_t kParameterEntrySize = 32;
constexpr std::size_t kPresetImageSize =
    newpresetheader::kSize + kNameEntrySize + kParameterCount * kParameterEntrySize;
constexpr std::size_t kBankImageSize =
    newpresetheader::kSize + kPresetCount * (kNameEntrySize + kParameterCount * kParameterEntrySize);
constexpr std::size_t kMidiMapImageSize = newpresetheader::kSize + kParameterCount * kParameterEntrySize;
constexpr std::size_t kOldPrefixSize = 5;  // unique ID and kind byte of an old file
static_assert(kPresetImageSize == 369 && kBankImageSize == 10537 && kMidiMapImageSize == 201);

using Bytes = std::vector<unsigned char>;
using Bank = std::array<ACombProgram, kPresetCount>;
using ParameterValues = std::array<float, kParameterCount>;
using DummySlots = std::array<bool, kParameterCount>;  // true: a placeholder that images leave out

// A value outside 0..1 that was met and repaired.
struct InvalidParameter {
  std::int32_t parameter;
  float value;  // as met
  std::int32_t preset;
  char name[ACombProgram::kNameSize];  // the preset's name at that moment
};
using InvalidParameters = std::vector<InvalidParameter>;

// The diagnostic line for such a value, newline included. operation: "save" or "load". The name is data: "%%" gives
// one per cent sign, everything else stands as it is.
std::string diagnosticLine(const InvalidParameter& invalid, const char* operation);

enum class Reading {
  done,
  stopped,  // a negative entry or float count: nothing was read
  refused,  // a value that cannot be taken: the caller keeps what it had
};

// currentPreset: 0..31. Values outside 0..1 are written as 0 or 1 and noted in `repaired`.
Bytes writeBank(const Bank& bank, std::int32_t uniqueID, std::int32_t currentPreset, const DummySlots& dummies,
                InvalidParameters& repaired);
// Values are written as they stand.
Bytes writePreset(const ACombProgram& preset, std::int32_t uniqueID, const DummySlots& dummies);
Bytes writeMidiMap(const ParameterValues& values, std::int32_t uniqueID, const DummySlots& dummies);

// The readers of current images take the entries behind an already swapped header and read at most header.dataSize
// and entries.size() bytes. On `refused` and `stopped` the caller drops the record that was read into.

// Reads into `bank`, which holds the bank as it was. Values outside 0..1 are repaired and noted; a NaN refuses.
Reading readBank(std::span<const unsigned char> entries, const newpresetheader& header, bool swapped,
                 const ACombProgram& defaultPreset, Bank& bank, InvalidParameters& repaired);
// The preset that a bank image selects: 0 where the header names none.
int presetToSelect(std::int32_t currentPreset);
// Reads into `preset`, which holds the default record. Any value outside 0..1 refuses.
Reading readPreset(std::span<const unsigned char> entries, const newpresetheader& header, bool swapped,
                   ACombProgram& preset);

struct MidiAssignment {
  int parameter;  // 0..4
  float value;    // 0..1
};
std::vector<MidiAssignment> readMidiMap(std::span<const unsigned char> entries, const newpresetheader& header,
                                        bool swapped);

// Old files, behind their five-byte prefix. Any value outside 0..1 refuses.

// Number of floats in an old preset file of `fileSize` bytes, and per record of an old bank file; -1: too short for
// the names.
int floatsInOldPreset(std::int64_t fileSize);
int floatsPerOldBankRecord(std::int64_t fileSize);

Reading readOldPreset(std::span<const unsigned char> data, bool swapped, int floatCount, const DummySlots& dummies,
                      ACombProgram& preset);
Reading readOldBank(std::span<const unsigned char> data, bool swapped, int recordCount, int floatsPerRecord,
                    const DummySlots& dummies, const ACombProgram& defaultPreset, Bank& bank);
// The assignments in front of the first value outside 0..1.
std::vector<MidiAssignment> readOldMidiMap(std::span<const unsigned char> data, bool swapped, int floatCount,
                                           const DummySlots& dummies);

}  // namespace presetimage
