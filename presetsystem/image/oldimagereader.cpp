// Reads the old presets, banks and MIDI maps: raw records after a prefix.
#include <algorithm>

#include "presetsystem/image/bytereader.h"
#include "presetsystem/image/imageentries.h"
#include "presetsystem/image/presetimage.h"

namespace presetimage {

namespace {

int floatsAfterName(std::int64_t bytes) {
  if (bytes < ACombProgram::kNameSize) return -1;  // not even the name is whole
  return static_cast<int>((bytes - ACombProgram::kNameSize) / 4);
}

std::size_t recordSize(int floats) {
  return 4 * static_cast<std::size_t>(floats) + ACombProgram::kNameSize;
}

struct OldRecords {
  std::span<const unsigned char> data;
  int count;
  std::size_t stride;  // bytes from one to the next
  std::size_t needed;  // bytes that have to be there for one to be read
};

Reading readOldRecords(const OldRecords& records, bool swapped, int floats,
                       const DummySlots& dummies, const ACombProgram& defaultPreset, Bank& bank) {
  std::span<const unsigned char> rest = records.data;
  for (int record = 0;
       record < records.count && record < kPresetCount && rest.size() >= records.needed; ++record) {
    ACombProgram& preset = bank[static_cast<std::size_t>(record)];
    preset = defaultPreset;
    const Reading reading =
        readOldPreset(rest.first(records.needed), swapped, floats, dummies, preset);
    if (reading != Reading::done) return reading;
    rest = rest.subspan(std::min(records.stride, rest.size()));
  }
  return Reading::done;
}

}  // namespace

int floatsInOldPreset(std::int64_t fileSize) {
  return floatsAfterName(fileSize - static_cast<std::int64_t>(kOldPrefixSize));
}

int floatsPerOldBankRecord(std::int64_t fileSize) {
  return floatsAfterName((fileSize - static_cast<std::int64_t>(kOldPrefixSize)) / kPresetCount);
}

// A name and then floats, of which `floatCount` are there.
Reading readOldPreset(std::span<const unsigned char> data, bool swapped, int floatCount,
                      const DummySlots& dummies, ACombProgram& preset) {
  if (floatCount < 0) return Reading::stopped;
  ByteReader in(data, swapped);
  in.bytes(preset.name, sizeof preset.name);
  for (int index = 0; index < floatCount && index < kOldParameterCount; ++index) {
    const float value = in.float32();
    if (dummies[static_cast<std::size_t>(index)]) continue;
    if (!isNormalised(value)) return Reading::refused;
    preset.setParameter(index, value);
  }
  return Reading::done;
}

Reading readOldBank(std::span<const unsigned char> data, bool swapped, int recordCount,
                    int floatsPerRecord, const DummySlots& dummies,
                    const ACombProgram& defaultPreset, Bank& bank) {
  if (floatsPerRecord < 0) return Reading::stopped;
  const OldRecords records{data, recordCount, recordSize(floatsPerRecord),
                           recordSize(floatsPerRecord)};
  return readOldRecords(records, swapped, floatsPerRecord, dummies, defaultPreset, bank);
}

Reading readOldChunk(std::span<const unsigned char> data, bool swapped, int recordCount,
                     int floatsPerRecord, const DummySlots& dummies,
                     const ACombProgram& defaultPreset, Bank& bank) {
  if (floatsPerRecord < 0) return Reading::stopped;
  const int taken = std::min(floatsPerRecord, kOldParameterCount);
  const OldRecords records{data, recordCount, recordSize(floatsPerRecord), recordSize(taken)};
  return readOldRecords(records, swapped, taken, dummies, defaultPreset, bank);
}

std::vector<MidiAssignment> readOldMidiMap(std::span<const unsigned char> data, bool swapped,
                                           int floatCount, const DummySlots& dummies) {
  std::vector<MidiAssignment> assignments;
  ByteReader in(data, swapped);
  for (int index = 0;
       index < floatCount && index < kOldParameterCount && in.left() >= sizeof(float); ++index) {
    const float value = in.float32();
    if (dummies[static_cast<std::size_t>(index)]) continue;
    if (!isNormalised(value)) break;
    assignments.push_back({index, value});
  }
  return assignments;
}

}  // namespace presetimage
