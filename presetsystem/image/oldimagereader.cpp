// Reads the old preset, bank and MIDI-map files: raw records behind a five-byte prefix.
#include "presetsystem/image/bytereader.h"
#include "presetsystem/image/imageentries.h"
#include "presetsystem/image/presetimage.h"

namespace presetimage {

namespace {

int floatsBehindName(std::int64_t recordSize) {
  if (recordSize < ACombProgram::kNameSize) return -1;  // not even the name is whole
  return static_cast<int>((recordSize - ACombProgram::kNameSize) / 4);
}

}  // namespace

int floatsInOldPreset(std::int64_t fileSize) {
  return floatsBehindName(fileSize - static_cast<std::int64_t>(kOldPrefixSize));
}

int floatsPerOldBankRecord(std::int64_t fileSize) {
  return floatsBehindName((fileSize - static_cast<std::int64_t>(kOldPrefixSize)) / kPresetCount);
}

// A name and then floats, of which `floatCount` are there.
Reading readOldPreset(std::span<const unsigned char> data, bool swapped, int floatCount, const DummySlots& dummies,
                      ACombProgram& preset) {
  if (floatCount < 0) return Reading::stopped;
  ByteReader in(data, swapped);
  in.bytes(preset.name, sizeof preset.name);
  for (int index = 0; index < floatCount && index < kParameterCount; ++index) {
    const float value = in.float32();
    if (dummies[static_cast<std::size_t>(index)]) continue;
    if (!isNormalised(value)) return Reading::refused;
    preset.setParameter(index, value);
  }
  return Reading::done;
}

Reading readOldBank(std::span<const unsigned char> data, bool swapped, int recordCount, int floatsPerRecord,
                    const DummySlots& dummies, const ACombProgram& defaultPreset, Bank& bank) {
  if (floatsPerRecord < 0) return Reading::stopped;
  const std::size_t stride = 4 * static_cast<std::size_t>(floatsPerRecord) + ACombProgram::kNameSize;
  for (int record = 0; record < recordCount && record < kPresetCount && data.size() >= stride; ++record) {
    ACombProgram& preset = bank[static_cast<std::size_t>(record)];
    preset = defaultPreset;
    const Reading reading = readOldPreset(data.first(stride), swapped, floatsPerRecord, dummies, preset);
    if (reading != Reading::done) return reading;
    data = data.subspan(stride);
  }
  return Reading::done;
}

std::vector<MidiAssignment> readOldMidiMap(std::span<const unsigned char> data, bool swapped, int floatCount,
                                           const DummySlots& dummies) {
  std::vector<MidiAssignment> assignments;
  ByteReader in(data, swapped);
  for (int index = 0; index < floatCount && index < kParameterCount && in.left() >= sizeof(float); ++index) {
    const float value = in.float32();
    if (dummies[static_cast<std::size_t>(index)]) continue;
    if (!isNormalised(value)) break;
    assignments.push_back({index, value});
  }
  return assignments;
}

}  // namespace presetimage
