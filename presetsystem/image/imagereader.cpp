// Reads the entries of current preset, bank and MIDI-map images.
#include <optional>

#include "presetsystem/image/bytereader.h"
#include "presetsystem/image/imageentries.h"
#include "presetsystem/image/presetimage.h"

namespace presetimage {
namespace {

struct Entry {
  EntryKind kind;
  std::int32_t preset;
  ByteReader payload;
};

struct ParameterEntry {
  std::int32_t index;
  float value;
};

// The entries of one image, in order, up to the entry count or the end of the data,
// whichever comes first.
class EntryReader {
 public:
  EntryReader(std::span<const unsigned char> data, const newpresetheader& header, bool swapped)
      : in(data.first(bounded(data.size(), header.dataSize)), swapped), left(header.entryCount) {}

  // None when the entries are used up, or when one names a payload that is negative or not there.
  std::optional<Entry> next() {
    if (left <= 0 || in.left() < kEntryHeadSize) return std::nullopt;
    --left;
    const auto kind = static_cast<EntryKind>(in.int32());
    const std::int32_t payloadSize = in.int32();
    const std::int32_t preset = in.int32();
    negativeSize = payloadSize < 0;
    if (negativeSize || static_cast<std::size_t>(payloadSize) > in.left()) return std::nullopt;
    return Entry{kind, preset, in.part(static_cast<std::size_t>(payloadSize))};
  }

  // It stopped at a payload of negative size: these are no entries, or none of this byte order.
  bool metNegativeSize() const { return negativeSize; }

 private:
  static std::size_t bounded(std::size_t there, std::int32_t named) {
    if (named < 0) return 0;
    return static_cast<std::size_t>(named) < there ? static_cast<std::size_t>(named) : there;
  }

  ByteReader in;
  std::int32_t left;
  bool negativeSize = false;
};

// None where the payload ends before the name does.
bool readName(Entry& entry, ACombProgram& preset) {
  if (entry.payload.left() < sizeof preset.name) return false;
  entry.payload.bytes(preset.name, sizeof preset.name);
  return true;
}

std::optional<ParameterEntry> readParameter(Entry& entry) {
  constexpr std::size_t kUpToValue = 16;  // bytes: index, two unused words, value
  if (entry.payload.left() < kUpToValue) return std::nullopt;
  const std::int32_t index = entry.payload.int32();
  entry.payload.skip(8);
  return ParameterEntry{index, entry.payload.float32()};
}

bool namesParameter(std::int32_t index) {
  return index >= 0 && index < kParameterCount;
}

}  // namespace

int presetToSelect(std::int32_t currentPreset) {
  return currentPreset >= 0 && currentPreset < kPresetCount ? currentPreset : 0;
}

Reading readBank(std::span<const unsigned char> entries, const newpresetheader& header,
                 bool swapped, const ACombProgram& defaultPreset, Bank& bank,
                 InvalidParameterListener& repaired) {
  if (header.entryCount < 0) return Reading::stopped;
  EntryReader in(entries, header, swapped);
  while (std::optional<Entry> entry = in.next()) {
    if (entry->preset < 0 || entry->preset >= kPresetCount) continue;
    ACombProgram& preset = bank[static_cast<std::size_t>(entry->preset)];
    if (entry->kind == EntryKind::name) {
      ACombProgram renamed = defaultPreset;
      if (readName(*entry, renamed)) preset = renamed;
    } else if (entry->kind == EntryKind::parameter) {
      const std::optional<ParameterEntry> read = readParameter(*entry);
      if (!read) continue;
      const float value =
          repairedValue(read->value, read->index, entry->preset, preset.name, repaired);
      if (!namesParameter(read->index)) continue;
      if (!isNormalised(value)) return Reading::refused;
      preset.setParameter(read->index, value);
    }
  }
  return Reading::done;
}

Reading readPreset(std::span<const unsigned char> entries, const newpresetheader& header,
                   bool swapped, ACombProgram& preset) {
  if (header.entryCount < 0) return Reading::stopped;
  EntryReader in(entries, header, swapped);
  while (std::optional<Entry> entry = in.next()) {
    if (entry->kind == EntryKind::name) {
      readName(*entry, preset);
    } else if (entry->kind == EntryKind::parameter) {
      const std::optional<ParameterEntry> read = readParameter(*entry);
      if (!read || !namesParameter(read->index)) continue;
      if (!isNormalised(read->value)) return Reading::refused;
      preset.setParameter(read->index, read->value);
    }
  }
  return in.metNegativeSize() ? Reading::refused : Reading::done;
}

std::vector<MidiAssignment> readMidiMap(std::span<const unsigned char> entries,
                                        const newpresetheader& header, bool swapped) {
  std::vector<MidiAssignment> assignments;
  EntryReader in(entries, header, swapped);
  while (std::optional<Entry> entry = in.next()) {
    if (entry->kind != EntryKind::midiAssignment) continue;
    const std::optional<ParameterEntry> read = readParameter(*entry);
    if (read && namesParameter(read->index) && isNormalised(read->value)) {
      assignments.push_back({read->index, read->value});
    }
  }
  return assignments;
}

}  // namespace presetimage
