// Fuzz target: the readers of old preset and old bank files, chosen by the file's kind byte.
#include <cstring>

#include "fuzz/imagelayout.h"
#include "fuzz/records.h"
#include "fuzz/require.h"

namespace {

using presetimage::Bank;
using presetimage::Bytes;
using presetimage::DummySlots;
using presetimage::Reading;

// An old file after its prefix.
struct OldFile {
  Bytes data;
  bool swapped;
  DummySlots dummies;  // none in a file of ours; a foreign unique ID names them
};

OldFile fileFrom(const Bytes& file, const presetimage::Image& image) {
  const bool isForeign = image.content == presetimage::Image::Content::foreign;
  const auto bits = static_cast<std::uint32_t>(fuzz::wordAt(file, 0, false));
  return {Bytes(file.begin() + presetimage::kOldPrefixSize, file.end()), image.swapped,
          fuzz::dummiesFrom(isForeign ? bits : 0)};
}

// Names stay, floats are turned. stride: bytes of a record, its name included.
Bytes inOtherOrder(Bytes records, std::size_t stride) {
  for (std::size_t at = 0; at + stride <= records.size(); at += stride) {
    fuzz::reverseWordsFrom(std::span<unsigned char>(records).subspan(at, stride),
                           ACombProgram::kNameSize);
  }
  return records;
}

// Those left out, and those for which there was no float, are still the default record's.
void requireDefaults(const ACombProgram& preset, int floats, const DummySlots& dummies) {
  for (int index = 0; index < presetimage::kParameterCount; ++index) {
    if (index < floats && !dummies[static_cast<std::size_t>(index)]) continue;
    require(preset.parameter(index) == fuzz::sampleDefault().parameter(index),
            "a value that the file does not hold is the default record's");
  }
}

void readPreset(const OldFile& file, int floats) {
  const auto read = [&](const Bytes& data, bool swapped, ACombProgram& preset) {
    preset = fuzz::sampleDefault();
    return presetimage::readOldPreset(data, swapped, floats, file.dummies, preset);
  };
  ACombProgram preset;
  const Reading reading = read(file.data, file.swapped, preset);
  require((reading == Reading::stopped) == (floats < 0),
          "a file too short for its name, and it alone, stops");
  require(fuzz::normalised(preset), "all values lie in 0..1, even where the reading was refused");
  if (reading == Reading::stopped) return;
  require(std::memcmp(preset.name, file.data.data(), sizeof preset.name) == 0,
          "the name is the file's");
  requireDefaults(preset, floats, file.dummies);
  ACombProgram turned;
  const Bytes other = inOtherOrder(file.data, file.data.size());
  require(read(other, !file.swapped, turned) == reading && fuzz::identical(turned, preset),
          "the other byte order reads the same");
}

void readBank(const OldFile& file, int records, int floats) {
  const Bank before = fuzz::sampleBank();
  const auto read = [&](const Bytes& data, bool swapped, Bank& bank) {
    bank = before;
    return presetimage::readOldBank(data, swapped, records, floats, file.dummies,
                                    fuzz::sampleDefault(), bank);
  };
  Bank bank;
  const Reading reading = read(file.data, file.swapped, bank);
  require((reading == Reading::stopped) == (floats < 0),
          "records too short for their names, and they alone, stop");
  require(fuzz::normalised(bank), "all values lie in 0..1, even where the reading was refused");
  require(reading != Reading::stopped || fuzz::identical(bank, before),
          "a stopped reading reads nothing");
  if (reading == Reading::stopped) return;

  const std::size_t stride = ACombProgram::kNameSize + 4 * static_cast<std::size_t>(floats);
  for (std::size_t number = 0; number < bank.size(); ++number) {
    const bool there =
        static_cast<std::int64_t>(number) < records && (number + 1) * stride <= file.data.size();
    if (!there) {
      require(fuzz::identical(bank[number], before[number]),
              "a preset without a record stays as it was");
    } else if (reading == Reading::done) {
      require(std::memcmp(bank[number].name, file.data.data() + number * stride,
                          ACombProgram::kNameSize) == 0,
              "a preset has its record's name");
      requireDefaults(bank[number], floats, file.dummies);
    }
  }
  Bank turned;
  require(read(inOtherOrder(file.data, stride), !file.swapped, turned) == reading &&
              fuzz::identical(turned, bank),
          "the other byte order reads the same");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < presetimage::kOldPrefixSize) return 0;
  const Bytes bytes(data, data + size);
  const presetimage::Image image = presetimage::identify(bytes, fuzz::kUniqueID);
  const OldFile file = fileFrom(bytes, image);
  const auto fileSize = static_cast<std::int64_t>(size);
  if (image.content == presetimage::Image::Content::preset && image.isOld) {
    require(image.floatsPerRecord == presetimage::floatsInOldPreset(fileSize),
            "the size tells the floats");
    readPreset(file, image.floatsPerRecord);
  } else {
    readBank(file, presetimage::kPresetCount, presetimage::floatsPerOldBankRecord(fileSize));
    // Counts that do not follow from the size: the readers stop at the end all the same.
    const auto wild = static_cast<std::int8_t>(data[presetimage::kOldPrefixSize - 1]);
    readBank(file, wild, wild / 4);
  }
  return 0;
}
