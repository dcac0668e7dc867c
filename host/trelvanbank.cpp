// Trelvan's bank as it travels in the chunk.
#include "host/trelvanbank.h"

#include <array>

#include "host/failure.h"
#include "presetsystem/image/chunkimage.h"

namespace {

using presetimage::Reading;

constexpr presetimage::DummySlots kNoDummies = {};  // every parameter is in the images

// What the plug-in puts in the place of values that a file leaves out: its first factory preset.
ACombProgram defaultPreset() {
  ACombProgram preset;
  preset.width = 0.0F;
  preset.emphasis = 0.0F;
  return preset;
}

chunkimage::Prefix prefixOf(std::span<const unsigned char> chunk, std::int32_t uniqueID, const std::string& source) {
  if (chunk.size() < chunkimage::kPrefixSize) throw Failure(source + ": no Trelvan state (too short)");
  const auto prefix = chunkimage::readPrefix(chunk.first<chunkimage::kPrefixSize>(), uniqueID);
  if (prefix.order == ByteOrder::foreign) throw Failure(source + ": no Trelvan state (another plug-in's)");
  return prefix;
}

void check(Reading reading, const std::string& source) {
  if (reading == Reading::refused) throw Failure(source + ": holds a value that is not within 0 to 1");
  if (reading == Reading::stopped) throw Failure(source + ": is damaged");
}

}  // namespace

// A preset or bank file whose owner and kind are known.
struct TrelvanBank::File {
  std::span<const unsigned char> data;
  ImageKind kind;
  bool swapped;
  newpresetheader header;  // of a current file, in this machine's byte order

  File(std::span<const unsigned char> bytes, std::int32_t uniqueID, const std::string& source) : data(bytes) {
    header = newpresetheader::read(data);
    const ByteOrder order = byteOrderOf(header.uniqueID, uniqueID);
    if (data.size() < presetimage::kOldPrefixSize || order == ByteOrder::foreign) {
      throw Failure(source + ": not a file of this plug-in");
    }
    kind = header.kind;
    swapped = order == ByteOrder::swapped;
    if (swapped) byteSwapHeader(&header);
  }

  bool holdsPreset() const { return kind == ImageKind::preset || kind == ImageKind::oldPreset; }
  bool holdsBank() const { return kind == ImageKind::bank || kind == ImageKind::oldBank; }
  std::int64_t size() const { return static_cast<std::int64_t>(data.size()); }
  std::span<const unsigned char> behindPrefix() const { return data.subspan(presetimage::kOldPrefixSize); }
  std::span<const unsigned char> entries(const std::string& source) const {
    if (data.size() < newpresetheader::kSize) throw Failure(source + ": is cut short");
    if (header.dataSize < 0 || static_cast<std::size_t>(header.dataSize) > data.size() - newpresetheader::kSize) {
      throw Failure(source + ": is cut short");
    }
    return data.subspan(newpresetheader::kSize);
  }
};

TrelvanBank::TrelvanBank(std::span<const unsigned char> chunk, std::int32_t uniqueID, const std::string& source)
    : id(uniqueID) {
  bank.fill(defaultPreset());
  if (prefixOf(chunk, id, source).formatTag != chunkimage::kFormatTag)
    throw Failure(source + ": a Trelvan state of an unknown format");
  const File file(chunk.subspan(chunkimage::kPrefixSize), id, source);
  check(presetimage::readBank(file.entries(source), file.header, file.swapped, defaultPreset(), bank, repaired),
        source);
  currentPreset = presetimage::presetToSelect(file.header.currentPreset);
}

void TrelvanBank::checkState(std::span<const unsigned char> chunk, std::int32_t uniqueID, const std::string& source) {
  if (prefixOf(chunk, uniqueID, source).formatTag == chunkimage::kOldFormatTag) return;
  const TrelvanBank whole(chunk, uniqueID, source);
}

void TrelvanBank::loadPreset(std::span<const unsigned char> data, const std::string& source) {
  const File file(data, id, source);
  if (file.holdsBank()) throw Failure(source + ": holds a bank (use --bank)");
  if (!file.holdsPreset()) throw Failure(source + ": holds no preset");
  ACombProgram preset = defaultPreset();
  if (file.kind == ImageKind::preset) {
    check(presetimage::readPreset(file.entries(source), file.header, file.swapped, preset), source);
  } else {
    const int floats = presetimage::floatsInOldPreset(file.size());
    check(presetimage::readOldPreset(file.behindPrefix(), file.swapped, floats, kNoDummies, preset), source);
  }
  preset.name[ACombProgram::kNameSize - 1] = 0;  // as the plug-in keeps names
  bank[static_cast<std::size_t>(currentPreset)] = preset;
}

void TrelvanBank::loadBank(std::span<const unsigned char> data, const std::string& source) {
  const File file(data, id, source);
  if (file.holdsPreset()) throw Failure(source + ": holds a single preset (use --preset)");
  if (!file.holdsBank()) throw Failure(source + ": holds no bank");
  presetimage::Bank read = bank;
  if (file.kind == ImageKind::bank) {
    presetimage::InvalidParameters notes;
    check(presetimage::readBank(file.entries(source), file.header, file.swapped, defaultPreset(), read, notes), source);
    repaired.insert(repaired.end(), notes.begin(), notes.end());
  } else {
    const int floats = presetimage::floatsPerOldBankRecord(file.size());
    check(presetimage::readOldBank(file.behindPrefix(), file.swapped, presetimage::kPresetCount, floats, kNoDummies,
                                   defaultPreset(), read),
          source);
  }
  bank = read;
  currentPreset = 0;
}

TrelvanBank::Bytes TrelvanBank::chunk() const {
  presetimage::InvalidParameters none;  // what was read is within 0..1
  return chunkimage::wrapBank(presetimage::writeBank(bank, id, currentPreset, kNoDummies, none), id);
}

std::vector<std::string> TrelvanBank::takeNotes() {
  std::vector<std::string> notes;
  for (const presetimage::InvalidParameter& note : repaired) {
    notes.push_back("parameter " + std::to_string(note.parameter) + " of preset " + std::to_string(note.preset) +
                    " was " + std::to_string(note.value) + ", taken as " + (note.value < 0.0F ? "0" : "1"));
  }
  repaired.clear();
  return notes;
}
