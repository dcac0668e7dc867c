// Fuzz target: the writers and the diagnostic, from records with any bits for names and values.
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <span>
#include <string>

#include "fuzz/imagelayout.h"
#include "fuzz/records.h"
#include "fuzz/require.h"

namespace {

using presetimage::Bank;
using presetimage::Bytes;
using presetimage::DummySlots;
using presetimage::InvalidParameters;
using presetimage::Reading;

// The sample bank with as many of its records as there are bytes for, 44 each, replaced
// by those bytes.
Bank bankFrom(const Bytes& data) {
  Bank bank = fuzz::sampleBank();
  constexpr std::size_t kRecord = sizeof(ACombProgram);
  for (std::size_t number = 0; number < bank.size() && (number + 1) * kRecord <= data.size();
       ++number) {
    const std::span<const unsigned char> record =
        std::span(data).subspan(number * kRecord, kRecord);
    std::memcpy(bank[number].name, record.data(), ACombProgram::kNameSize);
    for (int index = 0; index < presetimage::kParameterCount; ++index) {
      const std::size_t at = ACombProgram::kNameSize + 4 * static_cast<std::size_t>(index);
      bank[number].setParameter(index, std::bit_cast<float>(fuzz::wordAt(record, at, false)));
    }
  }
  return bank;
}

struct Expected {
  Bank bank;  // what the image reads back as, over the default record
  std::size_t repairs = 0;
  bool hasNaN = false;
};

Expected expectedFrom(const Bank& bank, const DummySlots& dummies) {
  Expected expected{bank};
  for (ACombProgram& preset : expected.bank) {
    for (int index = 0; index < presetimage::kParameterCount; ++index) {
      const float value = preset.parameter(index);
      if (dummies[static_cast<std::size_t>(index)]) {
        preset.setParameter(index, fuzz::sampleDefault().parameter(index));
      } else if (std::isnan(value)) {
        expected.hasNaN = true;
      } else if (value < 0.0F || value > 1.0F) {
        ++expected.repairs;
        preset.setParameter(index, value < 0.0F ? 0.0F : 1.0F);
      }
    }
  }
  return expected;
}

void requireLines(const InvalidParameters& repaired) {
  for (const presetimage::InvalidParameter& note : repaired) {
    const std::string line = presetimage::diagnosticLine(note, "save").text;
    require(line.starts_with("Invalid parameter ") && line.back() == '\n',
            "a diagnostic is a line");
    require(
        line.find(" on save of preset " + std::to_string(note.preset) + " ") != std::string::npos,
        "a diagnostic tells the operation and the preset");
    const std::size_t percentSigns =
        static_cast<std::size_t>(std::count(line.begin(), line.end(), '%'));
    const std::size_t nameLength = strnlen(note.name, sizeof note.name);
    require(percentSigns <=
                static_cast<std::size_t>(std::count(note.name, note.name + nameLength, '%')),
            "a name is no format");
  }
}

void requireBankImage(const Bank& bank, const DummySlots& dummies) {
  const Expected expected = expectedFrom(bank, dummies);
  InvalidParameters repaired;
  const Bytes written = presetimage::writeBank(bank, fuzz::kUniqueID, 31, dummies, repaired);
  require(repaired.size() == expected.repairs,
          "every value outside 0..1 is noted, and nothing else");
  requireLines(repaired);

  for (const Bytes& bytes : {written, fuzz::inOtherOrder(written)}) {
    const fuzz::Image image = fuzz::imageFrom(bytes);
    Bank back = fuzz::sampleBank();
    InvalidParameters none;
    const Reading reading = presetimage::readBank(image.entries, image.header, image.swapped,
                                                  fuzz::sampleDefault(), back, none);
    require(none.empty(), "what was written needs no repair");
    require(reading == (expected.hasNaN ? Reading::refused : Reading::done),
            "a NaN, and it alone, refuses a bank");
    require(expected.hasNaN || fuzz::identical(back, expected.bank),
            "what was written reads back repaired");
  }
}

void requirePresetImage(const ACombProgram& preset, const DummySlots& dummies) {
  const fuzz::Image image =
      fuzz::imageFrom(presetimage::writePreset(preset, fuzz::kUniqueID, dummies));
  ACombProgram expected = preset;
  for (std::size_t slot = 0; slot < dummies.size(); ++slot) {
    const int index = static_cast<int>(slot);
    if (dummies[slot]) expected.setParameter(index, fuzz::sampleDefault().parameter(index));
  }
  ACombProgram back = fuzz::sampleDefault();
  const Reading reading = presetimage::readPreset(image.entries, image.header, image.swapped, back);
  require((reading == Reading::done) == fuzz::normalised(expected),
          "a value outside 0..1, and it alone, refuses");
  require(reading != Reading::done || fuzz::identical(back, expected),
          "a preset is written as it stands");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
  if (size == 0) return 0;
  const DummySlots dummies = fuzz::dummiesFrom(input[0]);
  const Bank bank = bankFrom(Bytes(input + 1, input + size));
  requireBankImage(bank, dummies);
  requirePresetImage(bank[0], dummies);
  return 0;
}
