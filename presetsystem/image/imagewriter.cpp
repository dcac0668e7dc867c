// Writes preset, bank and MIDI-map images, and words the diagnostic for values outside 0..1.
#include <cstdio>
#include <cstring>

#include "platform/fixedpoint.h"
#include "presetsystem/image/bytewriter.h"
#include "presetsystem/image/imageentries.h"
#include "presetsystem/image/presetimage.h"

namespace presetimage {
namespace {

// Lays entries out after the room for a header, counts them, and fills the header in at the end.
class ImageBuilder {
 public:
  ImageBuilder(std::span<unsigned char> memory, ImageKind kind, std::int32_t uniqueID)
      : out(memory), entries(memory.subspan(newpresetheader::kSize)) {
    header.kind = kind;
    header.uniqueID = uniqueID;
  }

  void name(std::int32_t preset, const char (&text)[ACombProgram::kNameSize]) {
    head(EntryKind::name, kNameEntrySize, preset);
    entries.bytes(text, sizeof text);
    entries.zeros(kNameEntrySize - kEntryHeadSize - sizeof text);
  }
  void value(EntryKind kind, std::int32_t preset, std::int32_t parameter, float value) {
    head(kind, kParameterEntrySize, preset);
    entries.int32(parameter);
    entries.zeros(8);  // two words that nobody reads
    entries.float32(value);
    entries.zeros(4);
  }

  std::size_t finish(std::int32_t currentPreset) {
    header.currentPreset = currentPreset;
    header.dataSize = static_cast<std::int32_t>(entries.size());
    ByteWriter front(out);
    header.write(front);
    return front.size() + entries.size();
  }

 private:
  void head(EntryKind kind, std::size_t entrySize, std::int32_t preset) {
    entries.int32(static_cast<std::int32_t>(kind));
    entries.int32(static_cast<std::int32_t>(entrySize - kEntryHeadSize));
    entries.int32(preset);
    ++header.entryCount;
  }

  std::span<unsigned char> out;
  newpresetheader header;
  ByteWriter entries;
};

}  // namespace

std::size_t writeBank(std::span<unsigned char, kBankImageSize> out, const Bank& bank,
                      std::int32_t uniqueID, std::int32_t currentPreset, const DummySlots& dummies,
                      InvalidParameterListener& repaired) {
  ImageBuilder image(out, ImageKind::bank, uniqueID);
  for (int number = 0; number < kPresetCount; ++number) {
    const ACombProgram& preset = bank[static_cast<std::size_t>(number)];
    image.name(number, preset.name);
    for (int index = 0; index < kParameterCount; ++index) {
      if (dummies[static_cast<std::size_t>(index)]) continue;
      const float stored = preset.parameter(index);
      image.value(EntryKind::parameter, number, index,
                  repairedValue(stored, index, number, preset.name, repaired));
    }
  }
  return image.finish(currentPreset);
}

std::size_t writeChunk(std::span<unsigned char, kChunkSize> out, const Bank& bank,
                       std::int32_t uniqueID, std::int32_t currentPreset, const DummySlots& dummies,
                       InvalidParameterListener& repaired) {
  ByteWriter prefix(out);
  prefix.int32(kChunkTag);
  prefix.int32(uniqueID);
  const std::size_t size =
      writeBank(out.subspan<kChunkPrefixSize>(), bank, uniqueID, currentPreset, dummies, repaired);
  return prefix.size() + size;
}

std::size_t writePreset(std::span<unsigned char, kPresetImageSize> out, const ACombProgram& preset,
                        std::int32_t uniqueID, const DummySlots& dummies) {
  ImageBuilder image(out, ImageKind::preset, uniqueID);
  image.name(0, preset.name);
  for (int index = 0; index < kParameterCount; ++index) {
    if (!dummies[static_cast<std::size_t>(index)]) {
      image.value(EntryKind::parameter, 0, index, preset.parameter(index));
    }
  }
  return image.finish(0);
}

std::size_t writeMidiMap(std::span<unsigned char, kMidiMapImageSize> out,
                         const ParameterValues& values, std::int32_t uniqueID,
                         const DummySlots& dummies) {
  ImageBuilder image(out, ImageKind::midiMap, uniqueID);
  for (int index = 0; index < kParameterCount; ++index) {
    const auto slot = static_cast<std::size_t>(index);
    if (!dummies[slot]) image.value(EntryKind::midiAssignment, 0, index, values[slot]);
  }
  return image.finish(0);
}

float repairedValue(float value, std::int32_t parameter, std::int32_t preset,
                    const char (&name)[ACombProgram::kNameSize],
                    InvalidParameterListener& repaired) {
  // a NaN passes: only the caller knows what it means
  if (!(value < 0.0F) && !(value > 1.0F)) return value;
  InvalidParameter invalid{parameter, value, preset, {}};
  std::memcpy(invalid.name, name, sizeof invalid.name);
  repaired.met(invalid);
  return value < 0.0F ? 0.0F : 1.0F;
}

DiagnosticLine diagnosticLine(const InvalidParameter& invalid, const char* operation) {
  constexpr int kDigits = 6;  // after the point
  char value[48];             // a float's 39 digits, sign, point and those
  fixedPoint(value, sizeof value, static_cast<double>(invalid.value), kDigits);
  DiagnosticLine line;
  const int fixed = std::snprintf(line.text, sizeof line.text,
                                  "Invalid parameter %d value %s on %s of preset %d ",
                                  invalid.parameter, value, operation, invalid.preset);
  char* end = line.text + fixed;
  for (int i = 0; i < ACombProgram::kNameSize && invalid.name[i] != 0; ++i) {
    *end++ = invalid.name[i];
    const bool doubledPercent =
        invalid.name[i] == '%' && i + 1 < ACombProgram::kNameSize && invalid.name[i + 1] == '%';
    if (doubledPercent) ++i;
  }
  *end++ = '\n';
  *end = 0;
  return line;
}

}  // namespace presetimage
