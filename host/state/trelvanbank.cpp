// Trelvan's bank as it travels in the chunk.
#include "host/state/trelvanbank.h"

#include "effect/parameters.h"
#include "host/base/failure.h"
#include "presetsystem/image/image.h"

namespace {

using presetimage::Image;
using presetimage::Reading;

constexpr presetimage::DummySlots kNoDummies = {};  // every parameter is in the images

Image stateOf(std::span<const unsigned char> chunk, std::int32_t uniqueID,
              const std::string& source) {
  if (chunk.size() < presetimage::kChunkPrefixSize)
    throw Failure(source + ": no Trelvan state (too short)");
  const Image image = presetimage::identify(chunk, uniqueID);
  if (!image.isChunk) throw Failure(source + ": no Trelvan state (another plug-in's)");
  return image;
}

// A preset or bank file.
Image fileOf(std::span<const unsigned char> file, std::int32_t uniqueID,
             const std::string& source) {
  const Image image = presetimage::identify(file, uniqueID);
  if (image.content == Image::Content::foreign || image.isChunk) {
    throw Failure(source + ": not a file of this plug-in");
  }
  return image;
}

void checkWhole(const Image& image, const std::string& source) {
  if (image.extent != Image::Extent::whole) throw Failure(source + ": is cut short");
}

void check(Reading reading, const std::string& source) {
  if (reading == Reading::refused)
    throw Failure(source + ": holds a value that is not within 0 to 1");
  if (reading == Reading::stopped) throw Failure(source + ": is damaged");
}

}  // namespace

TrelvanBank::TrelvanBank(std::span<const unsigned char> chunk, std::int32_t uniqueID,
                         const std::string& source)
    : id(uniqueID) {
  bank.fill(initialPreset());
  const Image image = stateOf(chunk, id, source);
  if (image.content != Image::Content::bank || image.isOld) {
    throw Failure(source + ": a Trelvan state of an unknown format");
  }
  if (!image.headerIsOurs) throw Failure(source + ": not a file of this plug-in");
  checkWhole(image, source);
  check(presetimage::readBank(image, kNoDummies, initialPreset(), bank, repaired), source);
  currentPreset = image.presetToSelect;
}

void TrelvanBank::checkState(std::span<const unsigned char> chunk, std::int32_t uniqueID,
                             const std::string& source) {
  if (stateOf(chunk, uniqueID, source).isOld) return;
  const TrelvanBank whole(chunk, uniqueID, source);
}

void TrelvanBank::loadPreset(std::span<const unsigned char> file, const std::string& source) {
  const Image image = fileOf(file, id, source);
  if (image.content == Image::Content::bank) throw Failure(source + ": holds a bank (use --bank)");
  if (image.content != Image::Content::preset) throw Failure(source + ": holds no preset");
  checkWhole(image, source);
  ACombProgram preset = initialPreset();
  check(presetimage::readPreset(image, kNoDummies, preset), source);
  preset.name[ACombProgram::kNameSize - 1] = 0;  // as the plug-in keeps names
  bank[static_cast<std::size_t>(currentPreset)] = preset;
}

void TrelvanBank::loadBank(std::span<const unsigned char> file, const std::string& source) {
  const Image image = fileOf(file, id, source);
  if (image.content == Image::Content::preset)
    throw Failure(source + ": holds a single preset (use --preset)");
  if (image.content != Image::Content::bank) throw Failure(source + ": holds no bank");
  checkWhole(image, source);
  presetimage::Bank read = bank;
  presetimage::InvalidParameters notes;
  check(presetimage::readBank(image, kNoDummies, initialPreset(), read, notes), source);
  repaired.insert(repaired.end(), notes.begin(), notes.end());
  bank = read;
  currentPreset = 0;
}

TrelvanBank::Bytes TrelvanBank::chunk() const {
  presetimage::InvalidParameters none;  // what was read is within 0..1
  Bytes bytes(presetimage::kChunkSize);
  presetimage::writeChunk(std::span<unsigned char, presetimage::kChunkSize>(bytes), bank, id,
                          currentPreset, kNoDummies, none);
  return bytes;
}

TrelvanBank::Bytes TrelvanBank::presetFile() const {
  Bytes bytes(presetimage::kPresetImageSize);
  presetimage::writePreset(std::span<unsigned char, presetimage::kPresetImageSize>(bytes),
                           bank[static_cast<std::size_t>(currentPreset)], id, kNoDummies);
  return bytes;
}

TrelvanBank::Bytes TrelvanBank::bankFile() const {
  presetimage::InvalidParameters none;
  Bytes bytes(presetimage::kBankImageSize);
  presetimage::writeBank(std::span<unsigned char, presetimage::kBankImageSize>(bytes), bank, id,
                         currentPreset, kNoDummies, none);
  return bytes;
}

std::vector<std::string> TrelvanBank::takeNotes() {
  std::vector<std::string> notes;
  for (const presetimage::InvalidParameter& note : repaired) {
    notes.push_back("parameter " + std::to_string(note.parameter) + " of preset " +
                    std::to_string(note.preset) + " was " + std::to_string(note.value) +
                    ", taken as " + (note.value < 0.0F ? "0" : "1"));
  }
  repaired.clear();
  return notes;
}
