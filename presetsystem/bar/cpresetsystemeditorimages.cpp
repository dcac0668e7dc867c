// Images of presets, banks and MIDI maps, between the effect's bank and the callers' buffers.
#include <algorithm>
#include <cstdio>
#include <memory>
#include <new>
#include <span>

#include "presetsystem/bar/cpresetsystemeditor.h"
#include "presetsystem/image/presetimage.h"
#include "presetsystem/store/cpresetsystemeffect.h"

namespace {

constexpr int kMidiBase = 5;  // the first of the five parameters that a MIDI map holds

std::span<const unsigned char> bytesAt(const char* data, std::int64_t size) {
  return {reinterpret_cast<const unsigned char*>(data), static_cast<std::size_t>(std::max<std::int64_t>(size, 0))};
}

long handOver(const presetimage::Bytes& image, char** out) {
  *out = new char[image.size()];
  std::copy(image.begin(), image.end(), *out);
  return static_cast<long>(image.size());
}

// For developers, on the standard error stream.
void report(const presetimage::InvalidParameters& repaired, const char* operation) {
  for (const presetimage::InvalidParameter& invalid : repaired) {
    std::fputs(presetimage::diagnosticLine(invalid, operation).c_str(), stderr);
  }
}

std::unique_ptr<presetimage::Bank> copyOf(const presetimage::Bank& bank) {
  return std::unique_ptr<presetimage::Bank>(new (std::nothrow) presetimage::Bank(bank));
}

}  // namespace

long CPresetSystemEditor::BankToBuffer(char** out) {
  presetimage::InvalidParameters repaired;
  const presetimage::Bytes image = presetimage::writeBank(presetEffect->bank(), presetEffect->getUniqueID(),
                                                          static_cast<std::int32_t>(presetEffect->getPresetNo()),
                                                          presetEffect->dummySlots(), repaired);
  report(repaired, "save");
  return handOver(image, out);
}

long CPresetSystemEditor::PresetToBuffer(char** out) {
  const ACombProgram& current = presetEffect->preset(presetEffect->getPresetNo());
  return handOver(presetimage::writePreset(current, presetEffect->getUniqueID(), presetEffect->dummySlots()), out);
}

long CPresetSystemEditor::MidiToBuffer(char** out) {
  presetimage::ParameterValues values;
  for (std::size_t slot = 0; slot < values.size(); ++slot) {
    values[slot] = presetEffect->getParameter(kMidiBase + static_cast<VstInt32>(slot));
  }
  return handOver(presetimage::writeMidiMap(values, presetEffect->getUniqueID(), presetEffect->dummySlots()), out);
}

// The readers fill a copy, which takes the bank's place only when the reading is done.

void CPresetSystemEditor::BufferToBank(char* entries, newpresetheader* header, bool swapped) {
  const std::unique_ptr<presetimage::Bank> read = copyOf(presetEffect->bank());
  if (!read) return;
  presetimage::InvalidParameters repaired;
  const auto reading = presetimage::readBank(bytesAt(entries, header->dataSize), *header, swapped,
                                             presetEffect->getDefaultPreset(), *read, repaired);
  report(repaired, "load");
  if (reading != presetimage::Reading::done) return;
  presetEffect->bank() = *read;
  takeOverBank(presetimage::presetToSelect(header->currentPreset));
}

void CPresetSystemEditor::BufferToBankOld(char* data, bool swapped, int recordCount, int floatsPerRecord) {
  const std::unique_ptr<presetimage::Bank> read = copyOf(presetEffect->bank());
  if (!read) return;
  const std::int64_t size = std::int64_t{recordCount} * (4 * std::int64_t{floatsPerRecord} + ACombProgram::kNameSize);
  const auto reading = presetimage::readOldBank(bytesAt(data, size), swapped, recordCount, floatsPerRecord,
                                                presetEffect->oldDummySlots(), presetEffect->getDefaultPreset(), *read);
  if (reading != presetimage::Reading::done) return;
  presetEffect->bank() = *read;
  takeOverBank(0);
}

void CPresetSystemEditor::BufferToPreset(char* entries, newpresetheader* header, bool swapped) {
  const long current = presetEffect->getPresetNo();
  ACombProgram read = presetEffect->getDefaultPreset();
  const auto reading = presetimage::readPreset(bytesAt(entries, header->dataSize), *header, swapped, read);
  if (reading == presetimage::Reading::refused) return;
  presetEffect->preset(current) = read;
  // With a negative entry count the preset is reset, and the effect plays on as before.
  if (reading == presetimage::Reading::done) takeOverPreset(current);
}

void CPresetSystemEditor::BufferToPresetOld(char* data, bool swapped, int floatCount) {
  const long current = presetEffect->getPresetNo();
  ACombProgram read = presetEffect->getDefaultPreset();
  const std::int64_t size = ACombProgram::kNameSize + 4 * std::int64_t{floatCount};
  const auto reading =
      presetimage::readOldPreset(bytesAt(data, size), swapped, floatCount, presetEffect->oldDummySlots(), read);
  if (reading != presetimage::Reading::done) return;
  presetEffect->preset(current) = read;
  takeOverPreset(current);
}

void CPresetSystemEditor::BufferToMidi(char* entries, newpresetheader* header, bool swapped) {
  for (const presetimage::MidiAssignment& assignment :
       presetimage::readMidiMap(bytesAt(entries, header->dataSize), *header, swapped)) {
    presetEffect->setParameter(kMidiBase + assignment.parameter, assignment.value);
  }
}

void CPresetSystemEditor::BufferToMidiOld(char* data, bool swapped, int floatCount) {
  const std::int64_t size = 4 * std::int64_t{floatCount};
  for (const presetimage::MidiAssignment& assignment :
       presetimage::readOldMidiMap(bytesAt(data, size), swapped, floatCount, presetEffect->oldDummySlots())) {
    presetEffect->setParameter(kMidiBase + assignment.parameter, assignment.value);
  }
}
