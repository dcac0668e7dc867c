// Seeds of images and chunks: small ones of every kind, in both byte orders, made by the writers.
#include <string>

#include "fuzz/imagelayout.h"
#include "fuzz/records.h"
#include "fuzz/seeds.h"
#include "presetsystem/image/bytewriter.h"
#include "tests/support/imagebytes.h"

namespace {

using fuzz::Corpus;
using presetimage::Bytes;

constexpr std::size_t kPresetEntries =
    presetimage::kNameEntrySize + presetimage::kParameterCount * presetimage::kParameterEntrySize;

Bytes withHeader(newpresetheader header, std::size_t entriesSize, std::int32_t entryCount,
                 const Bytes& image) {
  header.dataSize = static_cast<std::int32_t>(entriesSize);
  header.entryCount = entryCount;
  Bytes made(image.begin(),
             image.begin() + static_cast<std::ptrdiff_t>(newpresetheader::kSize + entriesSize));
  ByteWriter front(made);
  header.write(front);
  return made;
}

// The whole bank is long; the first presets of it say as much to a mutator. presets: 0..32.
Bytes bankImage(int presets) {
  presetimage::InvalidParameters repaired;
  const Bytes whole = presetimage::writeBank(fuzz::sampleBank(), fuzz::kUniqueID, 3, {}, repaired);
  return withHeader(newpresetheader::read(whole),
                    static_cast<std::size_t>(presets) * kPresetEntries, 6 * presets, whole);
}

Bytes samplePresetImage() {
  return presetimage::writePreset(fuzz::sampleDefault(), fuzz::kUniqueID, {});
}

Bytes midiMapImage() {
  return presetimage::writeMidiMap({0.0F, 0.25F, 0.5F, 0.75F, 1.0F}, fuzz::kUniqueID, {});
}

// Values beyond 0..1: a bank is repaired, a preset refused.
Bytes wildPresetImage() {
  ACombProgram wild = fuzz::sampleDefault();
  wild.width = 1.25F;
  wild.phase = -3.0F;
  return presetimage::writePreset(wild, fuzz::kUniqueID, {});
}

Bytes wildBankImage() {
  Bytes image = wildPresetImage();
  image[newpresetheader::kKindOffset] = static_cast<unsigned char>(ImageKind::bank);
  return image;
}

// Records of old files and chunks: a name and `floats` values each.
Bytes oldRecords(int records, int floats) {
  const presetimage::Bank bank = fuzz::sampleBank();
  imagebytes::Writer out;
  for (int number = 0; number < records; ++number) {
    const ACombProgram& preset = bank[static_cast<std::size_t>(number)];
    out.text(std::string(preset.name, sizeof preset.name), sizeof preset.name);
    for (int index = 0; index < floats; ++index)
      out.real(preset.parameter(index % presetimage::kParameterCount));
  }
  return out.bytes;
}

Bytes oldFile(ImageKind kind, const Bytes& records, bool otherOrder) {
  Bytes file = imagebytes::Writer()
                   .number(fuzz::kUniqueID)
                   .byte(static_cast<int>(kind))
                   .append(records)
                   .bytes;
  if (otherOrder) fuzz::reverseWordAt(file, 0);
  return file;
}

Bytes oldPreset(int floats, bool otherOrder) {
  return oldFile(ImageKind::oldPreset, oldRecords(1, floats), otherOrder);
}

Bytes oldBank(int floats, bool otherOrder) {
  return oldFile(ImageKind::oldBank, oldRecords(presetimage::kPresetCount, floats), otherOrder);
}

Bytes oldChunk(int records, int floats, std::int32_t current) {
  imagebytes::Writer out;
  out.number(presetimage::kOldChunkTag)
      .number(fuzz::kUniqueID)
      .number(records)
      .number(current)
      .zeros(16);
  return out.append(oldRecords(records, floats)).bytes;
}

Bytes oldChunkInOtherOrder(Bytes chunk) {
  fuzz::reverseWordsFrom(std::span<unsigned char>(chunk).first(presetimage::kOldChunkHeaderSize),
                         0);
  return chunk;
}

// A byte in front, by which editorimages tells how the file is loaded: by the operations, or by the
// bank's or the preset's button.
constexpr unsigned char kByOperation = 0, kPresetButton = 1, kBankButton = 3, kReversed = 4;
Bytes loaded(unsigned char way, const Bytes& file) {
  Bytes input = {way};
  input.insert(input.end(), file.begin(), file.end());
  return input;
}

// Two bytes in front, by which setchunk tells how the host's size relates to the data.
Bytes steered(unsigned char mode, unsigned char cut, const Bytes& chunk) {
  Bytes input = {mode, cut};
  input.insert(input.end(), chunk.begin(), chunk.end());
  return input;
}

void addBothOrders(Corpus& corpus, const std::string& target, const std::string& name,
                   const Bytes& image) {
  corpus.add(target, name, image);
  corpus.add(target, name + "-other-order", fuzz::inOtherOrder(image));
}

void addImages(Corpus& corpus) {
  corpus.add("bank", "bank-empty", bankImage(0));
  addBothOrders(corpus, "bank", "bank-2-presets", bankImage(2));
  corpus.add("bank", "bank-wild", wildBankImage());
  corpus.add("bank", "bank-whole", bankImage(presetimage::kPresetCount));
  addBothOrders(corpus, "preset", "preset", samplePresetImage());
  corpus.add("preset", "preset-wild", wildPresetImage());
  addBothOrders(corpus, "midimap", "midimap", midiMapImage());
  corpus.add("midimap", "old-floats", oldRecords(1, 5));
}

void addOld(Corpus& corpus) {
  corpus.add("oldfile", "old-preset", oldPreset(5, false));
  corpus.add("oldfile", "old-preset-other-order", oldPreset(3, true));
  corpus.add("oldfile", "old-bank", oldBank(5, false));
  corpus.add("oldfile", "old-bank-other-order", oldBank(1, true));
  corpus.add("oldchunk", "whole", oldChunk(32, 5, 7));
  corpus.add("oldchunk", "two-records", oldChunk(2, 5, 40));
  corpus.add("oldchunk", "three-floats", oldChunk(4, 3, 1));
  corpus.add("oldchunk", "no-records", oldChunk(0, 5, 2));
  corpus.add("oldchunk", "other-order", oldChunkInOtherOrder(oldChunk(2, 0, 1)));
}

void addFiles(Corpus& corpus) {
  const auto addEachWay = [&corpus](const std::string& name, unsigned char button,
                                    const Bytes& file) {
    corpus.add("editorimages", name, loaded(kByOperation, file));
    corpus.add("editorimages", name + "-by-button", loaded(button, file));
  };
  const Bytes bank = bankImage(2);
  addEachWay("bank-empty", kBankButton, bankImage(0));
  addEachWay("bank-2-presets", kBankButton, bank);
  addEachWay("bank-2-presets-other-order", kBankButton, fuzz::inOtherOrder(bank));
  addEachWay("bank-wild", kBankButton, wildBankImage());
  addEachWay("bank-whole", kBankButton, bankImage(presetimage::kPresetCount));
  addEachWay("old-bank", kBankButton, oldBank(5, false));
  addEachWay("old-bank-other-order", kBankButton, oldBank(1, true));
  const Bytes preset = samplePresetImage();
  addEachWay("preset", kPresetButton, preset);
  addEachWay("preset-other-order", kPresetButton, fuzz::inOtherOrder(preset));
  addEachWay("preset-wild", kPresetButton, wildPresetImage());
  addEachWay("old-preset", kPresetButton, oldPreset(5, false));
  addEachWay("old-preset-other-order", kPresetButton, oldPreset(3, true));
  addEachWay("midimap", kPresetButton, midiMapImage());
  corpus.add("editorimages", "midimap-other-order",
             loaded(kByOperation, fuzz::inOtherOrder(midiMapImage())));
  corpus.add("editorimages", "bank-reversed", loaded(kBankButton | kReversed, bank));
  corpus.add("editorimages", "preset-reversed", loaded(kPresetButton | kReversed, preset));
  corpus.add("editorimages", "bank-by-the-presets-button", loaded(kPresetButton, bank));
}

void addChunks(Corpus& corpus) {
  const Bytes small = presetimage::wrapBank(bankImage(2), fuzz::kUniqueID);
  corpus.add("setchunk", "whole",
             steered(0, 0, presetimage::wrapBank(bankImage(32), fuzz::kUniqueID)));
  corpus.add("setchunk", "small", steered(0, 0, small));
  corpus.add("setchunk", "other-order", steered(0, 0, fuzz::chunkInOtherOrder(small)));
  corpus.add("setchunk", "cut", steered(1, 128, small));
  corpus.add("setchunk", "no-size", steered(2, 0, small));
  corpus.add("setchunk", "negative-size", steered(3, 0, fuzz::chunkInOtherOrder(small)));
  corpus.add("setchunk", "wild",
             steered(0, 0, presetimage::wrapBank(wildBankImage(), fuzz::kUniqueID)));
  corpus.add("setchunk", "old", steered(0, 0, oldChunk(32, 5, 7)));
  corpus.add("setchunk", "old-other-order", steered(0, 0, oldChunkInOtherOrder(oldChunk(2, 0, 1))));

  Bytes records = oldRecords(3, 5);
  records.insert(records.begin(), 0);  // no placeholders
  corpus.add("writers", "records", records);
}

std::string hexadecimal(const Bytes& bytes) {
  std::string text = "bytes:";
  for (const unsigned char byte : bytes) {
    for (const int digit : {byte >> 4, byte & 15}) text += "0123456789abcdef"[digit];
  }
  return text;
}

// In front: the size of a short buffer, and the change of a key: its number, how, and its value.
Bytes preferences(const Bytes& change, const std::string& lines) {
  Bytes input = {16};
  input.insert(input.end(), change.begin(), change.end());
  for (const char letter : "[Preferences]\n" + lines)
    input.push_back(static_cast<unsigned char>(letter));
  return input;
}

void addPreferences(Corpus& corpus) {
  const std::string places = "CurrDir=string:/home/%C3%A4/\nCurrBank=string:b.orb\n";
  const std::string preset = hexadecimal(samplePresetImage());
  const Bytes toText = {0, 2, 3, '/', 0xFF, '/'};
  const Bytes toBytes = {5, 1, 3, 1, 0, 255};
  const Bytes away = {1, 0, 0};
  const auto add = [&corpus](const std::string& name, const Bytes& seed) {
    corpus.add("preferences", name, seed);
  };
  add("places", preferences(toText, places));
  add("defaults", preferences(toBytes, "DefaultBank=" + hexadecimal(bankImage(1)) +
                                           "\nDefaultPreset=" + preset + "\n"));
  add("other-order",
      preferences(away, "MemoAPreset=" + hexadecimal(fuzz::inOtherOrder(samplePresetImage())) +
                            "\n" + places));
  add("old", preferences(toText, "DefaultPreset=" + hexadecimal(oldPreset(5, false)) + "\n"));
  add("twice", preferences(away, "CurrBank=string:a\n" + places));
  add("comments", preferences(away, "# kept\n" + places + "\n[Other]\nCurrDir=string:x\n"));
  add("damaged", preferences(toBytes, "no line of a key file\n" + places));
}

}  // namespace

void fuzz::addImageSeeds(Corpus& corpus) {
  addImages(corpus);
  addOld(corpus);
  addFiles(corpus);
  addChunks(corpus);
  addPreferences(corpus);
}
