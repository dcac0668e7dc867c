// Steps through entries and turns words round.
#include "fuzz/imagelayout.h"

#include <algorithm>
#include <cstring>

#include "presetsystem/image/presetimage.h"

namespace fuzz {
namespace {

constexpr std::size_t kWord = 4;        // bytes
constexpr std::size_t kEntryHead = 12;  // bytes: kind, payload size, preset index

}  // namespace

std::int32_t wordAt(std::span<const unsigned char> data, std::size_t at, bool swapped) {
  unsigned char bytes[kWord];
  std::memcpy(bytes, data.subspan(at, kWord).data(), kWord);
  if (swapped) std::reverse(std::begin(bytes), std::end(bytes));
  std::int32_t word = 0;
  std::memcpy(&word, bytes, kWord);
  return word;
}

void reverseWordAt(std::span<unsigned char> data, std::size_t at) {
  const std::span<unsigned char> word = data.subspan(at, kWord);
  std::reverse(word.begin(), word.end());
}

void reverseWordsFrom(std::span<unsigned char> data, std::size_t at) {
  for (; at + kWord <= data.size(); at += kWord) reverseWordAt(data, at);
}

std::span<const unsigned char> namedPart(std::span<const unsigned char> entries,
                                         std::int32_t dataSize) {
  return entries.first(std::min(entries.size(), static_cast<std::size_t>(std::max(dataSize, 0))));
}

std::vector<EntryPlace> entryPlaces(std::span<const unsigned char> entries, std::int32_t count,
                                    std::int32_t dataSize, bool swapped) {
  std::vector<EntryPlace> places;
  entries = namedPart(entries, dataSize);
  for (; count > 0 && entries.size() >= kEntryHead; --count) {
    const std::int32_t kind = wordAt(entries, 0, swapped);
    const std::int32_t payloadSize = wordAt(entries, kWord, swapped);
    const std::int32_t preset = wordAt(entries, 2 * kWord, swapped);
    entries = entries.subspan(kEntryHead);
    if (payloadSize < 0 || static_cast<std::size_t>(payloadSize) > entries.size()) break;
    const auto payload = static_cast<std::size_t>(payloadSize);
    places.push_back({kind, preset, entries.first(payload)});
    entries = entries.subspan(payload);
  }
  return places;
}

void reverseHeader(std::span<unsigned char> data) {
  reverseWordAt(data, 0);
  reverseWordsFrom(data.first(newpresetheader::kSize), newpresetheader::kKindOffset + 1);
}

void reverseEntries(std::span<unsigned char> entries, bool swapped) {
  while (entries.size() >= kEntryHead) {
    const std::int32_t kind = wordAt(entries, 0, swapped);
    const std::int32_t payloadSize = wordAt(entries, kWord, swapped);
    reverseWordsFrom(entries.first(kEntryHead), 0);
    entries = entries.subspan(kEntryHead);
    if (payloadSize < 0 || static_cast<std::size_t>(payloadSize) > entries.size()) return;
    const auto payload = static_cast<std::size_t>(payloadSize);
    if (kind == 1 || kind == 2) reverseWordsFrom(entries.first(payload), 0);
    entries = entries.subspan(payload);
  }
}

presetimage::Bytes inOtherOrder(presetimage::Bytes image) {
  reverseHeader(image);
  reverseEntries(std::span<unsigned char>(image).subspan(newpresetheader::kSize), false);
  return image;
}

presetimage::Bytes chunkInOtherOrder(presetimage::Bytes chunk) {
  const std::span<unsigned char> bytes(chunk);
  reverseWordsFrom(bytes.first(presetimage::kChunkPrefixSize), 0);
  reverseHeader(bytes.subspan(presetimage::kChunkPrefixSize));
  reverseEntries(bytes.subspan((presetimage::kChunkPrefixSize + newpresetheader::kSize)), false);
  return chunk;
}

}  // namespace fuzz
