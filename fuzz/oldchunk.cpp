// Fuzz target: the door, and the reader of old chunks.
#include <algorithm>
#include <cstring>
#include <span>
#include <utility>

#include "fuzz/imagelayout.h"
#include "fuzz/records.h"
#include "fuzz/require.h"
#include "presetsystem/image/image.h"

namespace {

using presetimage::Bank;
using presetimage::Bytes;
using presetimage::DummySlots;

constexpr std::size_t kCountOffset = 8;
constexpr std::size_t kReservedOffset = 16;  // four words that mean nothing

// A chunk as long as is taken in at most, zero-filled.
Bytes takenIn(std::span<const unsigned char> chunk) {
  Bytes data(chunk.begin(), chunk.begin() + static_cast<std::ptrdiff_t>(std::min(
                                                chunk.size(), presetimage::kOldChunkSize)));
  data.resize(presetimage::kOldChunkSize);
  data.shrink_to_fit();
  return data;
}

struct OldReading {
  bool complete;
  int presetToSelect;
};

// byteSize: what the host says; data: what is there of it, and all that may be looked at.
OldReading readOver(const Bytes& data, std::int64_t byteSize, const DummySlots& dummies,
                    Bank& bank) {
  bank = fuzz::sampleBank();
  const bool known = byteSize > 0;
  const std::size_t size = known ? static_cast<std::size_t>(byteSize) : data.size();
  const presetimage::Image image =
      presetimage::identify({data.data(), size}, fuzz::kUniqueID, {.sizeKnown = known});
  if (!image.isChunk) return {false, 0};
  presetimage::InvalidParameters none;
  const auto reading = presetimage::readBank(image, dummies, fuzz::sampleDefault(), bank, none);
  return {reading == presetimage::Reading::done, image.presetToSelect};
}

// Bytes from one record to the next; 0: too small for a name.
std::size_t strideOf(std::int64_t byteSize, std::int32_t count) {
  const std::int64_t share = (byteSize - 32) / count;
  return byteSize < 32 || share < ACombProgram::kNameSize ? 0
                                                          : static_cast<std::size_t>(share / 4 * 4);
}

// Floats are turned, names stay, as the stride tells them apart.
Bytes inOtherOrder(Bytes data, std::size_t stride) {
  const std::span<unsigned char> bytes(data);
  fuzz::reverseWordsFrom(bytes.first(presetimage::kOldChunkHeaderSize), 0);
  if (stride == 0) return data;
  for (std::size_t at = presetimage::kOldChunkHeaderSize; at < data.size();
       at += std::min(stride, data.size())) {
    fuzz::reverseWordsFrom(bytes.subspan(at, std::min(stride, data.size() - at)),
                           ACombProgram::kNameSize);
  }
  return data;
}

void read(const Bytes& data, std::int64_t byteSize, bool swapped, const DummySlots& dummies) {
  const Bank before = fuzz::sampleBank();
  Bank bank;
  const OldReading reading = readOver(data, byteSize, dummies, bank);
  require(fuzz::normalised(bank), "all values lie in 0..1, even where the reading was refused");
  require(!reading.complete ||
              (reading.presetToSelect >= 0 && reading.presetToSelect < presetimage::kPresetCount),
          "the preset to select is one of the bank");

  const std::int32_t count = fuzz::wordAt(data, kCountOffset, swapped);
  const std::size_t stride = count > 0 ? strideOf(byteSize, count) : 0;
  const std::size_t taken = std::min(stride, presetimage::kOldRecordSize);  // of a record
  for (std::size_t number = 0; number < bank.size(); ++number) {
    const std::size_t at = presetimage::kOldChunkHeaderSize + number * stride;
    const bool there =
        stride != 0 && static_cast<std::int64_t>(number) < count && at + taken <= data.size();
    if (!there) {
      require(fuzz::identical(bank[number], before[number]),
              "a preset without a record stays as it was");
    } else if (reading.complete) {
      require(std::memcmp(bank[number].name, data.data() + at, ACombProgram::kNameSize) == 0,
              "a preset has its record's name");
    }
  }

  // A word that the size cuts reads as its first bytes and zeros, which is another number in the
  // other order.
  const bool wordsAreWhole =
      byteSize < 0 || byteSize % 4 == 0 ||
      byteSize >= static_cast<std::int64_t>(presetimage::kOldChunkHeaderSize);
  if (!wordsAreWhole) return;
  Bank turned;
  const OldReading other = readOver(inOtherOrder(data, stride), byteSize, dummies, turned);
  require(other.complete == reading.complete && other.presetToSelect == reading.presetToSelect &&
              fuzz::identical(turned, bank),
          "the other byte order reads the same");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
  if (size < presetimage::kChunkPrefixSize) return 0;
  const Bytes chunk(input, input + size);
  const presetimage::Image image = presetimage::identify(chunk, fuzz::kUniqueID);
  const std::int32_t tag = fuzz::wordAt(chunk, 0, image.swapped);
  const bool known = tag == presetimage::kChunkTag || tag == presetimage::kOldChunkTag;
  const bool isBank = image.content == presetimage::Image::Content::bank;
  require(!image.isChunk || isBank == known, "a chunk's tag is told in this machine's order");
  require(!image.isChunk || image.isOld == (tag == presetimage::kOldChunkTag),
          "and so is its generation");

  // Whatever it is, as an old chunk of ours.
  Bytes data = takenIn(chunk);
  const bool swapped = image.swapped;
  for (const auto& [at, word] :
       {std::pair<std::size_t, std::int32_t>{0, presetimage::kOldChunkTag}, {4, fuzz::kUniqueID}}) {
    std::memcpy(data.data() + at, &word, sizeof word);
    if (swapped) fuzz::reverseWordAt(data, at);
  }
  read(data, static_cast<std::int64_t>(size), swapped, {});
  // A size and placeholders that do not follow from what is there.
  const std::int32_t named = fuzz::wordAt(data, kReservedOffset, false);
  read(data, named, swapped, fuzz::dummiesFrom(static_cast<std::uint32_t>(named) >> 16));
  return 0;
}
