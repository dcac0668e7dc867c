// Fuzz target: the reader of current bank images.
#include <cstring>
#include <vector>

#include "fuzz/imagelayout.h"
#include "fuzz/records.h"
#include "fuzz/require.h"

namespace {

using presetimage::Bank;
using presetimage::Bytes;
using presetimage::InvalidParameters;
using presetimage::Reading;

struct BankReading {
  Reading result;
  Bank bank;  // what was read into
  InvalidParameters repaired;
};

BankReading readOver(const Bank& before, const Bytes& entries, const newpresetheader& header,
                     bool swapped) {
  BankReading reading{Reading::refused, before, {}};
  reading.result = presetimage::readBank(entries, header, swapped, fuzz::sampleDefault(),
                                         reading.bank, reading.repaired);
  return reading;
}

bool same(const BankReading& a, const BankReading& b) {
  return a.result == b.result && fuzz::identical(a.bank, b.bank) &&
         a.repaired.size() == b.repaired.size();
}

void requireHonestNotes(const BankReading& reading, std::size_t entries) {
  require(reading.repaired.size() <= entries, "there are no more diagnostics than entries");
  for (const presetimage::InvalidParameter& note : reading.repaired) {
    require(note.value < 0.0F || note.value > 1.0F, "a diagnostic tells a value outside 0..1");
    require(note.preset >= 0 && note.preset < presetimage::kPresetCount,
            "a diagnostic tells a preset of the bank");
  }
}

// Every preset has the name of its last name entry, and one that no entry names is as it was.
void requireNamedOnly(const Bank& before, const BankReading& reading,
                      const std::vector<fuzz::EntryPlace>& places) {
  for (std::size_t number = 0; number < before.size(); ++number) {
    const char* name = before[number].name;
    bool named = false;
    for (const fuzz::EntryPlace& place : places) {
      if (place.preset != static_cast<std::int32_t>(number)) continue;
      named = true;
      const bool renames = place.kind == 0 && place.payload.size() >= ACombProgram::kNameSize;
      if (renames) name = reinterpret_cast<const char*>(place.payload.data());
    }
    const ACombProgram& preset = reading.bank[number];
    require(std::memcmp(preset.name, name, sizeof preset.name) == 0,
            "a preset has the name of its last name entry");
    require(named || fuzz::identical(preset, before[number]),
            "a preset that no entry names stays as it was");
  }
}

void requireRoundTrip(const Bank& bank, std::int32_t currentPreset) {
  const int select = presetimage::presetToSelect(currentPreset);
  require(select >= 0 && select < presetimage::kPresetCount,
          "the preset to select is one of the bank");
  InvalidParameters repaired;
  const Bytes written = presetimage::writeBank(bank, fuzz::kUniqueID, select, {}, repaired);
  require(repaired.empty(), "what was read is written without repair");
  const fuzz::Image image = fuzz::imageFrom(written);
  require(image.header.currentPreset == select, "the current preset is written");
  const BankReading back = readOver(Bank(), image.entries, image.header, image.swapped);
  require(back.result == Reading::done && back.repaired.empty() && fuzz::identical(back.bank, bank),
          "what was written reads back the same");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < newpresetheader::kSize) return 0;
  const fuzz::Image image = fuzz::imageFrom({data, size});
  const newpresetheader& header = image.header;
  const Bank before = fuzz::sampleBank();
  const BankReading reading = readOver(before, image.entries, header, image.swapped);

  require((reading.result == Reading::stopped) == (header.entryCount < 0),
          "a negative entry count, and it alone, stops");
  require(fuzz::normalised(reading.bank),
          "all values lie in 0..1, even where the reading was refused");
  require(reading.result != Reading::stopped || fuzz::identical(reading.bank, before),
          "a stopped reading reads nothing");
  const auto places =
      fuzz::entryPlaces(image.entries, header.entryCount, header.dataSize, image.swapped);
  requireHonestNotes(reading, places.size());

  const auto named = fuzz::namedPart(image.entries, header.dataSize);
  require(same(readOver(before, Bytes(named.begin(), named.end()), header, image.swapped), reading),
          "nothing after the data size is looked at");
  Bytes turned = image.entries;
  fuzz::reverseEntries(turned, image.swapped);
  require(same(readOver(before, turned, header, !image.swapped), reading),
          "the other byte order reads the same");

  if (reading.result == Reading::done) {
    requireNamedOnly(before, reading, places);
    require(same(readOver(reading.bank, image.entries, header, image.swapped), reading),
            "reading twice is reading once");
    requireRoundTrip(reading.bank, header.currentPreset);
  }
  return 0;
}
