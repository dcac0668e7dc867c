// Fuzz target: files of every kind, read into the whole effect through the editor's operations as a file loader calls
// them.
#include <algorithm>
#include <cstring>
#include <memory>
#include <span>

#include "fuzz/imagelayout.h"
#include "fuzz/records.h"
#include "fuzz/require.h"
#include "fuzz/wholeeffect.h"

namespace {

using presetimage::Bank;
using presetimage::Bytes;

constexpr long kCurrentBefore = 30;

void readCurrentFile(ImageKind kind, const Bytes& file) {
  fuzz::Image image = fuzz::imageFrom(file);
  // A loader has no more bytes than the file: the operations trust the header.
  image.header.dataSize = std::min(image.header.dataSize, static_cast<std::int32_t>(image.entries.size()));
  char* entries = reinterpret_cast<char*>(image.entries.data());
  CPresetSystemEditor& editor = fuzz::wholeEffectsEditor();
  if (kind == ImageKind::preset) editor.BufferToPreset(entries, &image.header, image.swapped);
  if (kind == ImageKind::bank) editor.BufferToBank(entries, &image.header, image.swapped);
  if (kind == ImageKind::midiMap) editor.BufferToMidi(entries, &image.header, image.swapped);
}

void readOldFile(ImageKind kind, const Bytes& file, bool swapped) {
  Bytes data(file.begin() + presetimage::kOldPrefixSize, file.end());
  char* records = reinterpret_cast<char*>(data.data());
  CPresetSystemEditor& editor = fuzz::wholeEffectsEditor();
  const auto size = static_cast<std::int64_t>(file.size());
  if (kind == ImageKind::oldPreset) {
    editor.BufferToPresetOld(records, swapped, presetimage::floatsInOldPreset(size));
  } else if (kind == ImageKind::oldBank) {
    editor.BufferToBankOld(records, swapped, presetimage::kPresetCount, presetimage::floatsPerOldBankRecord(size));
  } else {
    editor.BufferToMidiOld(records, swapped, static_cast<int>(data.size() / sizeof(float)));
  }
}

bool isCurrentKind(ImageKind kind) {
  return kind == ImageKind::preset || kind == ImageKind::bank || kind == ImageKind::midiMap;
}
bool isBankKind(ImageKind kind) {
  return kind == ImageKind::bank || kind == ImageKind::oldBank;
}
bool isPresetKind(ImageKind kind) {
  return kind == ImageKind::preset || kind == ImageKind::oldPreset;
}

// A preset that is read takes its name as if it were typed: 23 characters, zeros after them.
void renameAsTyped(ACombProgram& preset) {
  char name[ACombProgram::kNameSize + 1] = {};
  std::memcpy(name, preset.name, sizeof preset.name);
  preset.rename(name);
}

struct Outcome {
  presetimage::Reading result;
  Bank bank;
};

// What the pure readers make of the same file, all or nothing. The MIDI map is no part of the bank.
Outcome expectedFrom(ImageKind kind, const Bytes& file, bool swapped, const Bank& before) {
  using presetimage::Reading;
  const ACombProgram& fallback = fuzz::wholeEffect().getDefaultPreset();
  const auto size = static_cast<std::int64_t>(file.size());
  const std::span<const unsigned char> records = std::span(file).subspan(presetimage::kOldPrefixSize);
  Outcome outcome{Reading::refused, before};
  ACombProgram& current = outcome.bank[kCurrentBefore];
  if (isPresetKind(kind)) current = fallback;
  if (kind == ImageKind::oldPreset) {
    outcome.result = presetimage::readOldPreset(records, swapped, presetimage::floatsInOldPreset(size), {}, current);
  } else if (kind == ImageKind::oldBank) {
    outcome.result = presetimage::readOldBank(records, swapped, presetimage::kPresetCount,
                                              presetimage::floatsPerOldBankRecord(size), {}, fallback, outcome.bank);
  } else if (kind == ImageKind::preset || kind == ImageKind::bank) {
    const fuzz::Image image = fuzz::imageFrom(file);
    presetimage::InvalidParameters repaired;
    outcome.result =
        kind == ImageKind::preset
            ? presetimage::readPreset(image.entries, image.header, image.swapped, current)
            : presetimage::readBank(image.entries, image.header, image.swapped, fallback, outcome.bank, repaired);
    // A preset without so much as a count is reset.
    if (kind == ImageKind::preset && outcome.result == Reading::stopped) return outcome;
  }
  if (outcome.result != Reading::done) outcome.bank = before;
  if (outcome.result == Reading::done && isPresetKind(kind)) renameAsTyped(current);
  return outcome;
}

void requireOutcome(ImageKind kind, const Bytes& file, bool swapped, const Bank& before) {
  Trelvan& effect = fuzz::wholeEffect();
  const Outcome expected = expectedFrom(kind, file, swapped, before);
  require(fuzz::identical(effect.bank(), expected.bank), "the bank is what the file says, or what it was");
  const bool done = expected.result == presetimage::Reading::done;
  require((done && isBankKind(kind)) || effect.getPresetNo() == kCurrentBefore, "only a bank moves the selection");
  require(!(done && kind == ImageKind::oldBank) || effect.getPresetNo() == 0, "an old bank selects its first preset");
  if (done) fuzz::requireCurrentPresetPlays();
}

using Writer = long (CPresetSystemEditor::*)(char**);

// An image of ours, read in this and in the other byte order, is what the bank already holds.
void requireFixPoint(Writer write, ImageKind kind, std::size_t expectedSize) {
  char* out = nullptr;
  const long length = (fuzz::wholeEffectsEditor().*write)(&out);
  const std::unique_ptr<char[]> owned(out);
  require(length == static_cast<long>(expectedSize), "an image has the size of its kind");
  Bank before = fuzz::wholeEffect().bank();
  const long current = fuzz::wholeEffect().getPresetNo();
  if (kind == ImageKind::preset) renameAsTyped(before[static_cast<std::size_t>(current)]);
  const Bytes image(out, out + length);
  for (const Bytes& file : {image, fuzz::inOtherOrder(image)}) {
    readCurrentFile(kind, file);
    require(fuzz::identical(fuzz::wholeEffect().bank(), before), "what was written reads back the same");
    require(fuzz::wholeEffect().getPresetNo() == current, "the selection stays");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
  if (size < presetimage::kOldPrefixSize) return 0;
  const Bytes file(input, input + size);
  const auto kind = static_cast<ImageKind>(file[newpresetheader::kKindOffset]);
  const bool swapped = byteOrderOf(fuzz::wordAt(file, 0, false), fuzz::kUniqueID) == ByteOrder::swapped;
  if (isCurrentKind(kind) && size < newpresetheader::kSize) return 0;
  const Bank before = fuzz::sampleBank();
  fuzz::resetWholeEffect(before, kCurrentBefore);

  if (isCurrentKind(kind)) {
    readCurrentFile(kind, file);
  } else {
    readOldFile(kind, file, swapped);
  }
  fuzz::requireSoundState();
  requireOutcome(kind, file, swapped, before);
  requireFixPoint(&CPresetSystemEditor::BankToBuffer, ImageKind::bank, presetimage::kBankImageSize);
  requireFixPoint(&CPresetSystemEditor::PresetToBuffer, ImageKind::preset, presetimage::kPresetImageSize);
  requireFixPoint(&CPresetSystemEditor::MidiToBuffer, ImageKind::midiMap, presetimage::kMidiMapImageSize);
  return 0;
}
