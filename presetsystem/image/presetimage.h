// Preset, bank and MIDI-map images and the chunk: records to bytes and back, without an effect, a
// file or a window.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "presetsystem/image/acombprogram.h"
#include "presetsystem/image/newpresetheader.h"

namespace presetimage {

constexpr int kPresetCount = 32;
constexpr int kParameterCount = ACombProgram::kParameterCount;

// Sizes in bytes, of what is written and, of the old chunk, of what is taken in at most.
constexpr std::size_t kNameEntrySize = 168;
constexpr std::size_t kParameterEntrySize = 32;
constexpr std::size_t kPresetImageSize =
    newpresetheader::kSize + kNameEntrySize + kParameterCount * kParameterEntrySize;
constexpr std::size_t kBankImageSize =
    newpresetheader::kSize +
    kPresetCount * (kNameEntrySize + kParameterCount * kParameterEntrySize);
constexpr std::size_t kMidiMapImageSize =
    newpresetheader::kSize + kParameterCount * kParameterEntrySize;
constexpr std::size_t kOldPrefixSize = 5;    // unique ID and kind byte of an old file
constexpr std::size_t kChunkPrefixSize = 8;  // format tag and unique ID
constexpr std::size_t kChunkSize = kChunkPrefixSize + kBankImageSize;
constexpr std::size_t kOldChunkHeaderSize = 32;
// floats of an old record that are taken; nobody writes more any more
constexpr int kOldParameterCount = 5;
constexpr std::size_t kOldRecordSize = ACombProgram::kNameSize + kOldParameterCount * sizeof(float);
constexpr std::size_t kOldChunkSize = kOldChunkHeaderSize + kPresetCount * kOldRecordSize;
// Hosts' projects and users' files have these shapes.
static_assert(sizeof(ACombProgram) == 44);
static_assert(kPresetImageSize == 369);
static_assert(kBankImageSize == 10537);
static_assert(kMidiMapImageSize == 201);
static_assert(kChunkSize == 10545);
static_assert(kOldChunkSize == 1440);
static_assert(kOldParameterCount <= kParameterCount);

constexpr std::int32_t kChunkTag = 0x02000000;
constexpr std::int32_t kOldChunkTag = 0x01000000;

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

// Hears of each of them as it is met.
class InvalidParameterListener {
 public:
  virtual void met(const InvalidParameter& invalid) = 0;

 protected:
  ~InvalidParameterListener() = default;
};

// Keeps them.
struct InvalidParameters final : InvalidParameterListener, std::vector<InvalidParameter> {
  void met(const InvalidParameter& invalid) override { push_back(invalid); }
};

// The diagnostic line for such a value, newline included. operation: "save" or "load". The name is
// data: "%%" gives one per cent sign, everything else stands as it is. Allocates nothing.
struct DiagnosticLine {
  // The fixed text and a float with six digits after its point take 160 at most, the name its own
  // size, the newline and the end two.
  char text[160 + ACombProgram::kNameSize + 2];
};
DiagnosticLine diagnosticLine(const InvalidParameter& invalid, const char* operation);

enum class Reading {
  done,
  stopped,  // a negative entry or float count: nothing was read
  refused,  // a value that cannot be taken: the caller keeps what it had
};

// The writers put an image into `out` and return its size in bytes: the sizes above, less what
// `dummies` leave out. They allocate nothing. currentPreset: 0..31. Values outside 0..1 are written
// as 0 or 1, and `repaired` hears of them.
std::size_t writeBank(std::span<unsigned char, kBankImageSize> out, const Bank& bank,
                      std::int32_t uniqueID, std::int32_t currentPreset, const DummySlots& dummies,
                      InvalidParameterListener& repaired);
std::size_t writeChunk(std::span<unsigned char, kChunkSize> out, const Bank& bank,
                       std::int32_t uniqueID, std::int32_t currentPreset, const DummySlots& dummies,
                       InvalidParameterListener& repaired);
// Values are written as they stand.
std::size_t writePreset(std::span<unsigned char, kPresetImageSize> out, const ACombProgram& preset,
                        std::int32_t uniqueID, const DummySlots& dummies);
std::size_t writeMidiMap(std::span<unsigned char, kMidiMapImageSize> out,
                         const ParameterValues& values, std::int32_t uniqueID,
                         const DummySlots& dummies);

// The readers of current images take the entries after an already swapped header and read at most
// header.dataSize and entries.size() bytes. On `refused` and `stopped` the caller drops the record
// that was read into.

// Reads into `bank`, which holds the bank as it was. Values outside 0..1 are repaired and told; a
// NaN refuses.
Reading readBank(std::span<const unsigned char> entries, const newpresetheader& header,
                 bool swapped, const ACombProgram& defaultPreset, Bank& bank,
                 InvalidParameterListener& repaired);
// The preset that a bank image selects: 0 where the header names none.
int presetToSelect(std::int32_t currentPreset);
// Reads into `preset`, which holds the default record. Any value outside 0..1 refuses.
Reading readPreset(std::span<const unsigned char> entries, const newpresetheader& header,
                   bool swapped, ACombProgram& preset);

struct MidiAssignment {
  int parameter;  // index
  float value;    // 0..1
};
std::vector<MidiAssignment> readMidiMap(std::span<const unsigned char> entries,
                                        const newpresetheader& header, bool swapped);

// Old layouts, after their prefix. Any value outside 0..1 refuses.

// Number of floats in an old preset file of `fileSize` bytes, and per record of an old bank file;
// -1: too short for the names.
int floatsInOldPreset(std::int64_t fileSize);
int floatsPerOldBankRecord(std::int64_t fileSize);

Reading readOldPreset(std::span<const unsigned char> data, bool swapped, int floatCount,
                      const DummySlots& dummies, ACombProgram& preset);
Reading readOldBank(std::span<const unsigned char> data, bool swapped, int recordCount,
                    int floatsPerRecord, const DummySlots& dummies,
                    const ACombProgram& defaultPreset, Bank& bank);
// Of a chunk. A record is read where its first five floats are there; what was read before a
// refusal stays in `bank`.
Reading readOldChunk(std::span<const unsigned char> data, bool swapped, int recordCount,
                     int floatsPerRecord, const DummySlots& dummies,
                     const ACombProgram& defaultPreset, Bank& bank);
// The assignments before the first value outside 0..1.
std::vector<MidiAssignment> readOldMidiMap(std::span<const unsigned char> data, bool swapped,
                                           int floatCount, const DummySlots& dummies);

}  // namespace presetimage
