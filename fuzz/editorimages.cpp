// Fuzz target: files of every kind, loaded into the whole effect by the preset bar's buttons and
// through the editor's operations; and what the buttons save.
#include <algorithm>
#include <cstring>
#include <memory>
#include <span>

#include "fuzz/imagelayout.h"
#include "fuzz/records.h"
#include "fuzz/require.h"
#include "fuzz/shownbar.h"
#include "fuzz/wholeeffect.h"

namespace {

using presetimage::Bank;
using presetimage::Bytes;
using Content = presetimage::Image::Content;
using fuzz::FileButton;

constexpr long kCurrentBefore = 30;

// How a file gets into the effect, by the input's first byte.
struct Way {
  explicit Way(unsigned bits)
      : byButton((bits & 1U) != 0), ofBank((bits & 2U) != 0), reversed((bits & 4U) != 0) {}

  bool byButton;  // else by the operation for what the file is
  bool ofBank;    // the button; else the preset's
  bool reversed;  // "endian-reversed"
  FileButton button() const { return ofBank ? FileButton::loadBank : FileButton::loadPreset; }
  Content content() const { return ofBank ? Content::bank : Content::preset; }
};

// Into the effect by the operation for such a file. The bytes are a block of their own that ends
// where the file ends. What is none of ours is read as an old MIDI map, which no kind names.
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

// What the pure readers make of the same file, all or nothing. A MIDI map is no part of the bank.
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

// The preset that is selected afterwards. The bank's button selects the first one after every file
// of ours, whatever came of reading it.
long expectedSelection(const Way& way, const presetimage::Image& image, const Outcome& expected) {
  if (way.byButton) {
    return way.ofBank && image.content != Content::foreign ? 0 : kCurrentBefore;
  }
  const bool taken =
      image.content == Content::bank && expected.result == presetimage::Reading::done;
  return taken ? image.presetToSelect : kCurrentBefore;
}

void requireOutcome(const Way& way, const presetimage::Image& image, const Bank& before) {
  Trelvan& effect = fuzz::wholeEffect();
  const bool isRead = image.extent != presetimage::Image::Extent::headless &&
                      (!way.byButton || way.content() == image.content);
  const Outcome expected =
      isRead ? expectedFrom(image, before) : Outcome{presetimage::Reading::refused, before};
  require(fuzz::identical(effect.bank(), expected.bank),
          "the bank is what the file says, or what it was");
  require(effect.getPresetNo() == expectedSelection(way, image, expected),
          "only a bank moves the selection");
  require(!(image.isOld && image.content == Content::bank && isRead) ||
              expected.result != presetimage::Reading::done || effect.getPresetNo() == 0,
          "an old bank selects its first preset");
  if (expected.result == presetimage::Reading::done) fuzz::requireCurrentPresetPlays();
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

// The button saves the image that the operation writes, and loading it back changes nothing but the
// selection, which the bank's button puts to the first preset.
void requireSavedBack(Writer write, FileButton save, FileButton load) {
  Trelvan& effect = fuzz::wholeEffect();
  char* out = nullptr;
  const long length = (fuzz::wholeEffectsEditor().*write)(&out);
  const std::unique_ptr<char[]> owned(out);
  fuzz::press(save);
  require(fuzz::chosenFile().content() == Bytes(out, out + length), "the button saves the image");
  Bank before = effect.bank();
  const long current = effect.getPresetNo();
  if (load == FileButton::loadPreset) renameAsTyped(before[static_cast<std::size_t>(current)]);
  fuzz::press(load);
  require(fuzz::identical(effect.bank(), before), "what was saved loads back the same");
  require(effect.getPresetNo() == (load == FileButton::loadBank ? 0 : current),
          "a bank's button selects the first preset");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
  if (size < 1) return 0;
  const Way way(input[0]);
  const Bytes file(input + 1, input + size);
  presetimage::Image image =
      presetimage::identify(file, fuzz::kUniqueID, {.orderReversed = way.byButton && way.reversed});
  if (image.isChunk) image = {};  // no file of ours
  // nothing that an operation could be given
  const bool isOurs = image.content != Content::foreign && image.content != Content::unknown;
  const bool isHeadless = isOurs && image.extent == presetimage::Image::Extent::headless;
  if (!way.byButton && (isHeadless || file.size() < presetimage::kOldPrefixSize)) return 0;
  const Bank before = fuzz::sampleBank();
  fuzz::resetWholeEffect(before, kCurrentBefore);

  if (way.byButton) {
    fuzz::chosenFile().write(file);
    fuzz::press(way.button(), way.reversed);
    require(fuzz::chosenFile().content() == file, "loading leaves the file as it is");
  } else {
    readFile(image, file);
  }
  fuzz::requireSoundState();
  requireOutcome(way, image, before);
  requireFixPoint(&CPresetSystemEditor::BankToBuffer, Content::bank, presetimage::kBankImageSize);
  requireFixPoint(&CPresetSystemEditor::PresetToBuffer, Content::preset,
                  presetimage::kPresetImageSize);
  requireFixPoint(&CPresetSystemEditor::MidiToBuffer, Content::midiMap,
                  presetimage::kMidiMapImageSize);
  requireSavedBack(&CPresetSystemEditor::PresetToBuffer, FileButton::savePreset,
                   FileButton::loadPreset);
  requireSavedBack(&CPresetSystemEditor::BankToBuffer, FileButton::saveBank, FileButton::loadBank);
  return 0;
}
