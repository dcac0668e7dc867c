// Writes preset, bank and MIDI-map images, and words the diagnostic for values outside 0..1.
#include <cstdio>
#include <cstring>

#include "presetsystem/image/bytewriter.h"
#include "presetsystem/image/imageentries.h"
#include "presetsystem/image/presetimage.h"

namespace presetimage {
namespace {

// Collects entries and counts them, and puts the header in front of them in the end.
class ImageBuilder {
 public:
  ImageBuilder(ImageKind kind, std::int32_t uniqueID) {
    header.kind = kind;
    header.uniqueID = uniqueID;
    header.parameterCount = kParameterCount;
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

  Bytes finish(std::int32_t currentPreset) {
    header.currentPreset = currentPreset;
    header.dataSize = static_cast<std::int32_t>(entries.size());
    const Bytes body = entries.take();
    ByteWriter image;
    header.write(image);
    image.bytes(body.data(), body.size());
    return image.take();
  }

 private:
  void head(EntryKind kind, std::size_t entrySize, std::int32_t preset) {
    entries.int32(static_cast<std::int32_t>(kind));
    entries.int32(static_cast<std::int32_t>(entrySize - kEntryHeadSize));
    entries.int32(preset);
    ++header.entryCount;
  }

  newpresetheader header;
  ByteWriter entries;
};

}  // namespace

Bytes writeBank(const Bank& bank, std::int32_t uniqueID, std::int32_t currentPreset, const DummySlots& dummies,
                InvalidParameters& repaired) {
  ImageBuilder image(ImageKind::bank, uniqueID);
  for (int number = 0; number < kPresetCount; ++number) {
    const ACombProgram& preset = bank[static_cast<std::size_t>(number)];
    image.name(number, preset.name);
    for (int index = 0; index < kParameterCount; ++index) {
      if (dummies[static_cast<std::size_t>(index)]) continue;
      const float stored = preset.parameter(index);
      image.value(EntryKind::parameter, number, index, repairedValue(stored, index, number, preset.name, repaired));
    }
  }
  return image.finish(currentPreset);
}

Bytes writePreset(const ACombProgram& preset, std::int32_t uniqueID, const DummySlots& dummies) {
  ImageBuilder image(ImageKind::preset, uniqueID);
  image.name(0, preset.name);
  for (int index = 0; index < kParameterCount; ++index) {
    if (!dummies[static_cast<std::size_t>(index)]) {
      image.value(EntryKind::parameter, 0, index, preset.parameter(index));
    }
  }
  return image.finish(0);
}

Bytes writeMidiMap(const ParameterValues& values, std::int32_t uniqueID, const DummySlots& dummies) {
  ImageBuilder image(ImageKind::midiMap, uniqueID);
  for (int index = 0; index < kParameterCount; ++index) {
    const auto slot = static_cast<std::size_t>(index);
    if (!dummies[slot]) image.value(EntryKind::midiAssignment, 0, index, values[slot]);
  }
  return image.finish(0);
}

float repairedValue(float value, std::int32_t parameter, std::int32_t preset,
                    const char (&name)[ACombProgram::kNameSize], InvalidParameters& repaired) {
  if (!(value < 0.0F) && !(value > 1.0F)) return value;  // a NaN passes: only the caller knows what it means
  InvalidParameter& note = repaired.emplace_back(InvalidParameter{parameter, value, preset, {}});
  std::memcpy(note.name, name, sizeof note.name);
  return value < 0.0F ? 0.0F : 1.0F;
}

std::string diagnosticLine(const InvalidParameter& invalid, const char* operation) {
  char numbers[160];  // the fixed text and at most 47 characters of a float written with %f
  std::snprintf(numbers, sizeof numbers, "Invalid parameter %d value %f on %s of preset %d ", invalid.parameter,
                static_cast<double>(invalid.value), operation, invalid.preset);
  std::string line = numbers;
  for (int i = 0; i < ACombProgram::kNameSize && invalid.name[i] != 0; ++i) {
    line += invalid.name[i];
    const bool doubledPercent = invalid.name[i] == '%' && i + 1 < ACombProgram::kNameSize && invalid.name[i + 1] == '%';
    if (doubledPercent) ++i;
  }
  line += '\n';
  return line;
}

}  // namespace presetimage
