// Fuzz target: files of every kind, read into the whole effect through the editor's operations as a
// file loader calls them.
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
using Content = presetimage::Image::Content;

constexpr long kCurrentBefore = 30;

// Into the effect by the operation that a loader calls for such a file. The bytes are a block of
// their own that ends where the file ends. What is none of ours is read as an old MIDI map, which
// no kind names.
void readFile(const presetimage::Image& image, const Bytes& file) {
  CPresetSystemEditor& editor = fuzz::wholeEffectsEditor();
  Bytes copy(image.body.begin(), image.body.end());
  char* body = reinterpret_cast<char*>(copy.data());
  newpresetheader header = image.header;
  switch (image.content) {
    case Content::preset:
      image.isOld ? editor.BufferToPresetOld(body, image.swapped, image.floatsPerRecord)
                  : editor.BufferToPreset(body, &header, image.swapped);
      break;
    case Content::bank:
      image.isOld
          ? editor.BufferToBankOld(body, image.swapped, image.recordCount, image.floatsPerRecord)
          : editor.BufferToBank(body, &header, image.swapped);
      break;
    case Content::midiMap:
      editor.BufferToMidi(body, &header, image.swapped);
      break;
    case Content::foreign:
    case Content::unknown: {
      Bytes floats(file.begin() + presetimage::kOldPrefixSize, file.end());
      editor.BufferToMidiOld(reinterpret_cast<char*>(floats.data()), image.swapped,
                             static_cast<int>(floats.size() / sizeof(float)));
      break;
    }
  }
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
Outcome expectedFrom(const presetimage::Image& image, const Bank& before) {
  using presetimage::Reading;
  const ACombProgram& fallback = fuzz::wholeEffect().getDefaultPreset();
  Outcome outcome{Reading::refused, before};
  ACombProgram& current = outcome.bank[kCurrentBefore];
  if (image.content == Content::preset) {
    current = fallback;
    outcome.result = presetimage::readPreset(image, {}, current);
    // A preset without so much as a count is reset.
    if (outcome.result == Reading::stopped && !image.isOld) return outcome;
    if (outcome.result == Reading::done) renameAsTyped(current);
  } else if (image.content == Content::bank) {
    presetimage::InvalidParameters repaired;
    outcome.result = presetimage::readBank(image, {}, fallback, outcome.bank, repaired);
  }
  if (outcome.result != Reading::done) outcome.bank = before;
  return outcome;
}

void requireOutcome(const presetimage::Image& image, const Bank& before) {
  Trelvan& effect = fuzz::wholeEffect();
  const Outcome expected = expectedFrom(image, before);
  require(fuzz::identical(effect.bank(), expected.bank),
          "the bank is what the file says, or what it was");
  const bool done = expected.result == presetimage::Reading::done;
  const bool isBank = image.content == Content::bank;
  require((done && isBank) || effect.getPresetNo() == kCurrentBefore,
          "only a bank moves the selection");
  require(!(done && isBank) || effect.getPresetNo() == image.presetToSelect,
          "and to the preset that it selects");
  require(!(done && isBank && image.isOld) || effect.getPresetNo() == 0,
          "an old bank selects its first preset");
  if (done) fuzz::requireCurrentPresetPlays();
}

using Writer = long (CPresetSystemEditor::*)(char**);

// An image of ours, read in this and in the other byte order, is what the bank already holds.
void requireFixPoint(Writer write, Content content, std::size_t expectedSize) {
  char* out = nullptr;
  const long length = (fuzz::wholeEffectsEditor().*write)(&out);
  const std::unique_ptr<char[]> owned(out);
  require(length == static_cast<long>(expectedSize), "an image has the size of its kind");
  Bank before = fuzz::wholeEffect().bank();
  const long current = fuzz::wholeEffect().getPresetNo();
  if (content == Content::preset) renameAsTyped(before[static_cast<std::size_t>(current)]);
  const Bytes image(out, out + length);
  for (const Bytes& file : {image, fuzz::inOtherOrder(image)}) {
    const presetimage::Image read = presetimage::identify(file, fuzz::kUniqueID);
    require(read.content == content && read.extent == presetimage::Image::Extent::whole,
            "it is told for what it is");
    readFile(read, file);
    require(fuzz::identical(fuzz::wholeEffect().bank(), before),
            "what was written reads back the same");
    require(fuzz::wholeEffect().getPresetNo() == current, "the selection stays");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
  if (size < presetimage::kOldPrefixSize) return 0;
  const Bytes file(input, input + size);
  const presetimage::Image image = presetimage::identify(file, fuzz::kUniqueID);
  // no file, or none to be read
  const bool isOurs = image.content != Content::foreign && image.content != Content::unknown;
  if (image.isChunk || (isOurs && image.extent == presetimage::Image::Extent::headless)) return 0;
  const Bank before = fuzz::sampleBank();
  fuzz::resetWholeEffect(before, kCurrentBefore);

  readFile(image, file);
  fuzz::requireSoundState();
  requireOutcome(image, before);
  requireFixPoint(&CPresetSystemEditor::BankToBuffer, Content::bank, presetimage::kBankImageSize);
  requireFixPoint(&CPresetSystemEditor::PresetToBuffer, Content::preset,
                  presetimage::kPresetImageSize);
  requireFixPoint(&CPresetSystemEditor::MidiToBuffer, Content::midiMap,
                  presetimage::kMidiMapImageSize);
  return 0;
}
