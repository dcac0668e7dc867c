// Fuzz target: the reader of current preset images.
#include <cstring>
#include <vector>

#include "fuzz/imagelayout.h"
#include "fuzz/records.h"
#include "fuzz/require.h"

namespace {

using presetimage::Bytes;
using presetimage::Reading;

struct PresetReading {
  Reading result;
  ACombProgram preset;  // what was read into
};

PresetReading readOver(const ACombProgram& before, const Bytes& entries,
                       const newpresetheader& header, bool swapped) {
  PresetReading reading{Reading::refused, before};
  reading.result = presetimage::readPreset(entries, header, swapped, reading.preset);
  return reading;
}

bool same(const PresetReading& a, const PresetReading& b) {
  return a.result == b.result && fuzz::identical(a.preset, b.preset);
}

// The name is that of the last name entry, whatever preset it says it is for.
void requireName(const PresetReading& reading, const std::vector<fuzz::EntryPlace>& places) {
  const ACombProgram before = fuzz::sampleDefault();
  const void* name = before.name;
  for (const fuzz::EntryPlace& place : places) {
    if (place.kind == 0 && place.payload.size() >= ACombProgram::kNameSize)
      name = place.payload.data();
  }
  require(std::memcmp(reading.preset.name, name, ACombProgram::kNameSize) == 0,
          "the preset has the name of the last name entry");
}

// A slot left out of the image keeps the default record's value.
void requireRoundTrip(const ACombProgram& preset, std::uint32_t dummyBits) {
  const presetimage::DummySlots dummies = fuzz::dummiesFrom(dummyBits);
  const fuzz::Image image =
      fuzz::imageFrom(presetimage::writePreset(preset, fuzz::kUniqueID, dummies));
  const PresetReading back =
      readOver(fuzz::sampleDefault(), image.entries, image.header, image.swapped);
  ACombProgram expected = preset;
  for (std::size_t slot = 0; slot < dummies.size(); ++slot) {
    const int index = static_cast<int>(slot);
    if (dummies[slot]) expected.setParameter(index, fuzz::sampleDefault().parameter(index));
  }
  require(back.result == Reading::done && fuzz::identical(back.preset, expected),
          "what was written reads back the same");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < newpresetheader::kSize) return 0;
  const fuzz::Image image = fuzz::imageFrom({data, size});
  const newpresetheader& header = image.header;
  const ACombProgram before = fuzz::sampleDefault();
  const PresetReading reading = readOver(before, image.entries, header, image.swapped);

  require((reading.result == Reading::stopped) == (header.entryCount < 0),
          "a negative entry count, and it alone, stops");
  require(fuzz::normalised(reading.preset),
          "all values lie in 0..1, even where the reading was refused");
  require(reading.result != Reading::stopped || fuzz::identical(reading.preset, before),
          "a stopped reading reads nothing");

  const auto named = fuzz::namedPart(image.entries, header.dataSize);
  require(same(readOver(before, Bytes(named.begin(), named.end()), header, image.swapped), reading),
          "nothing after the data size is looked at");
  Bytes turned = image.entries;
  fuzz::reverseEntries(turned, image.swapped);
  require(same(readOver(before, turned, header, !image.swapped), reading),
          "the other byte order reads the same");

  if (reading.result == Reading::done) {
    requireName(reading, fuzz::entryPlaces(image.entries, header.entryCount, header.dataSize,
                                           image.swapped));
    requireRoundTrip(reading.preset, static_cast<std::uint32_t>(header.reserved[0]));
  }
  return 0;
}
