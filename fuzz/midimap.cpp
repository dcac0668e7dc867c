// Fuzz target: the readers of current and old MIDI maps, from the same input.
#include <algorithm>
#include <bit>
#include <vector>

#include "fuzz/imagelayout.h"
#include "fuzz/records.h"
#include "fuzz/require.h"

namespace {

using presetimage::Bytes;
using presetimage::MidiAssignment;
using Assignments = std::vector<MidiAssignment>;

bool same(const Assignments& a, const Assignments& b) {
  return std::equal(
      a.begin(), a.end(), b.begin(), b.end(), [](const MidiAssignment& x, const MidiAssignment& y) {
        return x.parameter == y.parameter &&
               std::bit_cast<std::uint32_t>(x.value) == std::bit_cast<std::uint32_t>(y.value);
      });
}

void requireUsable(const Assignments& assignments) {
  for (const MidiAssignment& assignment : assignments) {
    require(assignment.parameter >= 0 && assignment.parameter < presetimage::kParameterCount,
            "an assignment is for one of the five");
    require(assignment.value >= 0.0F && assignment.value <= 1.0F,
            "an assignment's value lies in 0..1");
  }
}

// The last value for each of the five, written and read again.
void requireRoundTrip(const Assignments& assignments, std::uint32_t dummyBits) {
  presetimage::ParameterValues values{};
  for (const MidiAssignment& assignment : assignments) {
    values[static_cast<std::size_t>(assignment.parameter)] = assignment.value;
  }
  const presetimage::DummySlots dummies = fuzz::dummiesFrom(dummyBits);
  const fuzz::Image image =
      fuzz::imageFrom(presetimage::writeMidiMap(values, fuzz::kUniqueID, dummies));
  Assignments expected;
  for (std::size_t slot = 0; slot < values.size(); ++slot) {
    if (!dummies[slot]) expected.push_back({static_cast<int>(slot), values[slot]});
  }
  require(same(presetimage::readMidiMap(image.entries, image.header, image.swapped), expected),
          "what was written reads back the same");
}

void readCurrent(const fuzz::Image& image) {
  const newpresetheader& header = image.header;
  const Assignments assignments = presetimage::readMidiMap(image.entries, header, image.swapped);
  requireUsable(assignments);
  const auto places =
      fuzz::entryPlaces(image.entries, header.entryCount, header.dataSize, image.swapped);
  const auto ofItsKind = std::count_if(places.begin(), places.end(),
                                       [](const auto& place) { return place.kind == 2; });
  require(assignments.size() <= static_cast<std::size_t>(ofItsKind),
          "only MIDI entries make assignments");

  Bytes turned = image.entries;
  fuzz::reverseEntries(turned, image.swapped);
  require(same(presetimage::readMidiMap(turned, header, !image.swapped), assignments),
          "the other byte order reads the same");
  requireRoundTrip(assignments, static_cast<std::uint32_t>(header.reserved[0]));
}

// data: bare floats.
void readOld(const Bytes& data, int floatCount, const presetimage::DummySlots& dummies) {
  const Assignments assignments = presetimage::readOldMidiMap(data, false, floatCount, dummies);
  requireUsable(assignments);
  const auto there = static_cast<std::int64_t>(data.size() / sizeof(float));
  require(static_cast<std::int64_t>(assignments.size()) <=
              std::min<std::int64_t>(std::max(floatCount, 0), there),
          "an assignment needs a float that was named and is there");
  for (const MidiAssignment& assignment : assignments) {
    require(!dummies[static_cast<std::size_t>(assignment.parameter)],
            "a placeholder is not assigned");
  }
  Bytes turned = data;
  fuzz::reverseWordsFrom(turned, 0);
  require(same(presetimage::readOldMidiMap(turned, true, floatCount, dummies), assignments),
          "the other byte order reads the same");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const Bytes floats(data, data + size);
  const auto whole = static_cast<int>(size / sizeof(float));
  readOld(floats, whole, {});
  // A count and placeholders that the data itself names.
  if (size >= sizeof(float)) {
    const std::int32_t named = fuzz::wordAt(floats, 0, false);
    readOld(floats, named, fuzz::dummiesFrom(static_cast<std::uint32_t>(named)));
  }
  if (size >= newpresetheader::kSize) readCurrent(fuzz::imageFrom(floats));
  return 0;
}
