// Tells chunks from files, byte orders, kinds and generations, and bounds what may be read.
#include "presetsystem/image/image.h"

#include <algorithm>
#include <limits>

#include "presetsystem/image/bytereader.h"

namespace presetimage {

namespace {

using Content = Image::Content;
using Extent = Image::Extent;

Content contentOf(ImageKind kind) {
  switch (kind) {
    case ImageKind::preset:
    case ImageKind::oldPreset:
      return Content::preset;
    case ImageKind::bank:
    case ImageKind::oldBank:
      return Content::bank;
    case ImageKind::midiMap:
      return Content::midiMap;
  }
  return Content::unknown;
}

// Header and entries. sizeIsTrusted: all that is there belongs to the image, whatever
// its header says.
void takeCurrent(Image& image, std::span<const unsigned char> bytes, bool sizeIsTrusted) {
  if (bytes.size() < newpresetheader::kSize) return;
  image.header = newpresetheader::read(bytes);
  if (image.swapped) byteSwapHeader(&image.header);
  image.presetToSelect = presetToSelect(image.header.currentPreset);
  constexpr auto kMost = static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max());
  image.body = bytes.subspan(newpresetheader::kSize);
  const auto there = static_cast<std::int32_t>(std::min(image.body.size(), kMost));
  const bool isCut = image.header.dataSize < 0 || image.header.dataSize > there;
  image.extent = isCut ? Extent::cut : Extent::whole;
  if (sizeIsTrusted || image.header.dataSize > there) image.header.dataSize = there;
}

void takeFile(Image& image, std::span<const unsigned char> bytes, bool whole) {
  const auto kind = static_cast<ImageKind>(bytes[newpresetheader::kKindOffset]);
  image.content = contentOf(kind);
  image.isOld = kind == ImageKind::oldPreset || kind == ImageKind::oldBank;
  if (!image.isOld) {
    if (image.content != Content::unknown) takeCurrent(image, bytes, false);
    return;
  }
  const bool isBank = kind == ImageKind::oldBank;
  if (isBank && !whole) {
    image.content = Content::unknown;  // its size is all that tells where the records are
    return;
  }
  const auto size = static_cast<std::int64_t>(bytes.size());
  image.extent = Extent::whole;
  image.body = bytes.subspan(kOldPrefixSize);
  image.recordCount = isBank ? kPresetCount : 1;
  image.floatsPerRecord = isBank ? floatsPerOldBankRecord(size) : floatsInOldPreset(size);
}

// The stride is not stored: it follows from the size, at most one record's share of it,
// in whole floats.
void takeOldChunk(Image& image, std::span<const unsigned char> bytes) {
  image.isOld = true;
  image.extent = Extent::whole;
  ByteReader header(bytes, image.swapped);
  header.skip(kChunkPrefixSize);
  const std::int32_t count = header.int32();
  image.presetToSelect = presetToSelect(header.int32());
  // a count below 0 names no records either
  if (count <= 0 || bytes.size() < kOldChunkHeaderSize) return;
  const auto share = static_cast<std::int64_t>(bytes.size() - kOldChunkHeaderSize) / count;
  if (share < ACombProgram::kNameSize) return;  // not even the names are there
  image.body = bytes.first(std::min(bytes.size(), kOldChunkSize)).subspan(kOldChunkHeaderSize);
  image.recordCount = count;
  image.floatsPerRecord = static_cast<int>((share - ACombProgram::kNameSize) / 4);
}

void takeChunk(Image& image, std::span<const unsigned char> bytes, std::int32_t uniqueID,
               bool sizeKnown) {
  image.isChunk = true;
  const std::int32_t tag = ByteReader(bytes, image.swapped).int32();
  image.content = tag == kChunkTag || tag == kOldChunkTag ? Content::bank : Content::unknown;
  if (tag == kChunkTag) {
    const std::span<const unsigned char> bank = bytes.subspan(kChunkPrefixSize);
    takeCurrent(image, bank, sizeKnown);
    const ByteOrder named = image.swapped ? ByteOrder::swapped : ByteOrder::native;
    const ByteOrder found = byteOrderOf(newpresetheader::read(bank).uniqueID, uniqueID);
    image.headerIsOurs = bank.size() >= kOldPrefixSize && found == named;
  }
  // Without a size there are no records to be told apart, and nothing after the prefix
  // is looked at.
  if (tag == kOldChunkTag) takeOldChunk(image, sizeKnown ? bytes : bytes.first(kChunkPrefixSize));
}

}  // namespace

// A file opens with the unique ID, a chunk has it as its second word.
Image identify(std::span<const unsigned char> bytes, std::int32_t uniqueID, const Origin& origin) {
  Image image;
  ByteReader words(bytes, false);
  const ByteOrder first = byteOrderOf(words.int32(), uniqueID);
  const ByteOrder second = byteOrderOf(words.int32(), uniqueID);
  if (origin.sizeKnown && first != ByteOrder::foreign && bytes.size() >= kOldPrefixSize) {
    image.swapped = (first == ByteOrder::swapped) != origin.orderReversed;
    takeFile(image, bytes, origin.whole);
  } else if (second != ByteOrder::foreign && bytes.size() >= kChunkPrefixSize) {
    image.swapped = second == ByteOrder::swapped;
    takeChunk(image, bytes, uniqueID, origin.sizeKnown);
  }
  return image;
}

Reading readBank(const Image& image, const DummySlots& oldDummies,
                 const ACombProgram& defaultPreset, Bank& bank,
                 InvalidParameterListener& repaired) {
  if (image.content != Content::bank || image.extent == Extent::headless) return Reading::stopped;
  if (!image.isOld)
    return readBank(image.body, image.header, image.swapped, defaultPreset, bank, repaired);
  const auto read = image.isChunk ? readOldChunk : readOldBank;
  return read(image.body, image.swapped, image.recordCount, image.floatsPerRecord, oldDummies,
              defaultPreset, bank);
}

Reading readPreset(const Image& image, const DummySlots& oldDummies, ACombProgram& preset) {
  if (image.content != Content::preset || image.extent == Extent::headless) return Reading::stopped;
  if (!image.isOld) return readPreset(image.body, image.header, image.swapped, preset);
  return readOldPreset(image.body, image.swapped, image.floatsPerRecord, oldDummies, preset);
}

}  // namespace presetimage
