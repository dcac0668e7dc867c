// Fuzz target: effSetChunk and effGetChunk of the whole effect, with sizes that fit and sizes that
// do not.
#include <algorithm>
#include <cstring>

#include "fuzz/chunklayout.h"
#include "fuzz/imagelayout.h"
#include "fuzz/records.h"
#include "fuzz/require.h"
#include "fuzz/wholeeffect.h"
#include "presetsystem/image/image.h"

namespace {

using presetimage::Bank;
using presetimage::Bytes;

constexpr VstInt32 kRefused = -1;
constexpr long kCurrentBefore = 9;

// What the host hands over: `data` is exactly as long as it promises to be.
struct HostsChunk {
  Bytes data;
  VstInt32 byteSize;  // 0 and below say nothing
};

VstInt32 setChunk(Bytes& data, VstInt32 byteSize) {
  AEffect* effect = fuzz::wholeEffect().getAeffect();
  return static_cast<VstInt32>(
      effect->dispatcher(effect, effSetChunk, 0, byteSize, data.data(), 0.0F));
}

presetimage::Image identified(const Bytes& data, bool sizeKnown = true) {
  return presetimage::identify(data, fuzz::kUniqueID, {.sizeKnown = sizeKnown});
}

newpresetheader headerOf(const Bytes& data, bool swapped) {
  newpresetheader header = newpresetheader::read(
      std::span(data).subspan(presetimage::kChunkPrefixSize, newpresetheader::kSize));
  if (swapped) byteSwapHeader(&header);
  return header;
}

constexpr std::size_t kEntriesOffset = presetimage::kChunkPrefixSize + newpresetheader::kSize;

bool isCurrent(const presetimage::Image& image) {
  return image.isChunk && !image.isOld && image.content == presetimage::Image::Content::bank;
}

// With a size that says nothing the host must hand over what the chunk itself claims, up to the
// largest there is.
Bytes asLongAsItClaims(Bytes data) {
  data.resize(std::max(data.size(), presetimage::kChunkPrefixSize));
  const presetimage::Image image = identified(data);
  std::size_t claimed = presetimage::kChunkPrefixSize;
  if (isCurrent(image)) {
    data.resize(std::max(data.size(), kEntriesOffset));
    const std::int32_t entries = headerOf(data, image.swapped).dataSize;
    claimed = std::min(kEntriesOffset + static_cast<std::size_t>(std::max(entries, 0)),
                       presetimage::kChunkSize);
  }
  data.resize(claimed);
  return Bytes(data);
}

// mode: how the size relates to the data. cut: of 256 parts, how much of the data the host
// owns up to.
HostsChunk hostsChunk(unsigned mode, unsigned cut, const Bytes& data) {
  switch (mode % 4) {
    case 0:
      return {data, static_cast<VstInt32>(data.size())};
    case 1:  // a part of it, and the heap block ends there
      return {
          Bytes(data.begin(), data.begin() + static_cast<std::ptrdiff_t>(data.size() * cut / 256)),
          static_cast<VstInt32>(data.size() * cut / 256)};
    case 2:
      return {asLongAsItClaims(data), 0};
    default:
      return {asLongAsItClaims(data), -static_cast<VstInt32>(cut) - 1};
  }
}

struct Outcome {
  VstInt32 answer;
  Bank bank;
  long current;
};

// What the pure readers make of the same bytes.
Outcome expectedFrom(const HostsChunk& chunk, const Bank& before) {
  Outcome outcome{kRefused, before, kCurrentBefore};
  Trelvan& effect = fuzz::wholeEffect();
  const presetimage::Image image = identified(chunk.data, chunk.byteSize > 0);
  if (!image.isChunk || image.content != presetimage::Image::Content::bank) return outcome;
  if (image.isOld) {
    presetimage::InvalidParameters none;
    const auto reading =
        presetimage::readBank(image, {}, effect.getDefaultPreset(), outcome.bank, none);
    if (reading == presetimage::Reading::done) outcome = {0, outcome.bank, image.presetToSelect};
    return outcome;
  }
  if (chunk.data.size() < kEntriesOffset) return outcome;
  const bool swapped = image.swapped;
  outcome.answer = 0;
  newpresetheader header = headerOf(chunk.data, swapped);
  const Bytes entries(chunk.data.begin() + kEntriesOffset, chunk.data.end());
  // the size bounds, no more
  if (chunk.byteSize > 0) header.dataSize = static_cast<std::int32_t>(entries.size());
  Bank read = before;
  presetimage::InvalidParameters repaired;
  const auto reading =
      presetimage::readBank(entries, header, swapped, effect.getDefaultPreset(), read, repaired);
  if (reading == presetimage::Reading::done) {
    outcome = {0, read, presetimage::presetToSelect(header.currentPreset)};
  }
  return outcome;
}

// The host's own copy is left alone but for the header's words, which are turned round
// with the reading.
void requireUntouched(const Bytes& now, Bytes before) {
  if (before.size() >= kEntriesOffset) {
    const presetimage::Image image = identified(before);
    if (isCurrent(image) && image.swapped) {
      constexpr std::size_t kVersionOffset =
          presetimage::kChunkPrefixSize + newpresetheader::kKindOffset + 1;
      fuzz::reverseWordsFrom(std::span(before).first(kEntriesOffset), kVersionOffset);
    }
  }
  require(now == before, "the host's data is left alone");
}

void requireFixPoint() {
  Bytes chunk = fuzz::validChunkOf(fuzz::wholeEffect());
  Bytes other = fuzz::chunkInOtherOrder(chunk);
  const Bytes written = chunk;
  require(setChunk(other, static_cast<VstInt32>(other.size())) == 0,
          "the chunk in the other byte order is taken");
  require(fuzz::validChunkOf(fuzz::wholeEffect()) == written,
          "the chunk in the other byte order restores everything");
  require(setChunk(chunk, static_cast<VstInt32>(chunk.size())) == 0,
          "the effect's own chunk is taken");
  require(fuzz::validChunkOf(fuzz::wholeEffect()) == written,
          "the effect's own chunk restores everything");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* input, std::size_t size) {
  if (size < 2) return 0;
  const Bank before = fuzz::sampleBank();
  fuzz::resetWholeEffect(before, kCurrentBefore);
  HostsChunk chunk = hostsChunk(input[0], input[1], Bytes(input + 2, input + size));
  if (chunk.data.empty()) return 0;  // no chunk of 0 bytes: that size says nothing
  const Outcome expected = expectedFrom(chunk, before);
  const Bytes handed = chunk.data;

  Trelvan& effect = fuzz::wholeEffect();
  require(setChunk(chunk.data, chunk.byteSize) == expected.answer,
          "a chunk is taken or refused as its bytes say");
  requireUntouched(chunk.data, handed);
  fuzz::requireSoundState();
  require(fuzz::identical(effect.bank(), expected.bank),
          "the bank is what the chunk says, or what it was");
  require(effect.getPresetNo() == expected.current, "the selection is the chunk's, or what it was");
  if (expected.answer == 0) fuzz::requireCurrentPresetPlays();
  requireFixPoint();
  require(effect.getPresetNo() == expected.current, "the selection travels with the chunk");
  return 0;
}
