// Whether a sound file is whole, as far as the file says itself.
#include "host/sound/completeness.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "host/sound/chunkwalk.h"
#include "host/sound/filebytes.h"
#include "host/sound/oggpages.h"

namespace {

std::string shortfall(const FileBytes& file, std::int64_t begin, std::uint64_t named,
                      std::size_t fieldBytes) {
  const auto there = static_cast<std::uint64_t>(std::max<std::int64_t>(file.size - begin, 0));
  if (isLeftOpen(named, fieldBytes)) return {};
  return shortfallText(named, there);
}

std::string shortfallInChunks(const FileBytes& file, ChunkWalk chunks) {
  while (const auto chunk = chunks.next()) {
    if (holdsSound(*chunk)) return shortfall(file, chunk->begin, chunk->size, chunk->sizeField);
  }
  return {};
}

std::string shortfallInAu(const FileBytes& file, bool bigEndian) {
  std::vector<char> buffer;
  const std::string_view fields = file.at(4, 8, buffer);  // the sound's offset and size
  if (fields.empty()) return {};
  const auto begin = static_cast<std::int64_t>(numberIn(fields.substr(0, 4), bigEndian));
  return shortfall(file, begin, numberIn(fields.substr(4), bigEndian), 4);
}

std::string damagedAt(std::int64_t byte) {
  return "is damaged at byte " + std::to_string(byte);
}

// Page by page, for the library leaves damaged ones out and takes the last whole one for the end.
std::string damageInOgg(const FileBytes& file) {
  constexpr unsigned char kEndOfStream = 1 << 2;  // in the sixth byte
  static constexpr const char* kCut = "has no last page: it is cut short, or a piece of a stream";
  std::vector<char> buffer;
  bool ended = false;
  for (std::int64_t at = 0; at < file.size;) {
    const std::string_view page = ogg::pageAt(file, at, buffer);
    if (page.empty()) {
      const std::string_view head = file.at(at, ogg::kHead, buffer);
      if (ended && !ogg::isPage(head)) return {};  // tags after the end
      return head.empty() || ogg::isPage(head) ? kCut : damagedAt(at);
    }
    if (ogg::pageSum(page) != numberIn(page.substr(ogg::kSumField, 4), false)) return damagedAt(at);
    ended = (static_cast<unsigned char>(page[5]) & kEndOfStream) != 0;
    at += static_cast<std::int64_t>(page.size());
  }
  return ended ? "" : kCut;
}

}  // namespace

// The most that a size can be or nearly so, less a header or a part of a block. Four bytes are seen
// at 2^31 or 2^32, and in AIFF at 0x7F000000.
bool isLeftOpen(std::uint64_t size, std::size_t sizeBytes) {
  if (sizeBytes == 8) return size >= std::uint64_t{1} << 62;
  constexpr std::uint64_t kNear = 0x10000;
  constexpr std::array<std::uint64_t, 3> kOpen = {0x7F000000, 0x80000000, 0x100000000};
  return std::any_of(kOpen.begin(), kOpen.end(), [size](std::uint64_t open) {
    return size + kNear >= open && size <= open + kNear;
  });
}

std::string shortfallText(std::uint64_t named, std::uint64_t there) {
  if (named <= there) return {};
  return "is cut short: its header names " + std::to_string(named) + " bytes of sound, " +
         std::to_string(there) + " are there";
}

std::string damageOf(int descriptor) {
  const FileBytes file(descriptor);
  std::vector<char> buffer;
  const std::string magic(file.at(0, 4, buffer));
  if (magic == "OggS") return damageInOgg(file);
  if (magic == ".snd" || magic == "dns.") return shortfallInAu(file, magic == ".snd");
  if (auto chunks = ChunkWalk::into(file)) return shortfallInChunks(file, std::move(*chunks));
  return {};
}

bool namesMp3Frames(int descriptor) {
  constexpr std::size_t kTagHead = 10;    // bytes, of which the last four are the tag's size
  constexpr std::size_t kFrameHead = 44;  // with what stands in front of the mark, and its flags
  const FileBytes file(descriptor);
  std::vector<char> buffer;
  const std::string tag(file.at(0, kTagHead, buffer));
  const std::int64_t begin =
      tag.starts_with("ID3") ? static_cast<std::int64_t>(kTagHead + sevenBitsIn(tag.substr(6))) : 0;
  const std::string_view frame = file.at(begin, kFrameHead, buffer);
  if (frame.empty() || numberIn(frame.substr(0, 2), true) < 0xFFE0) return false;
  const auto mark = std::min(frame.find("Xing"), frame.find("Info"));
  return mark <= kFrameHead - 8 && (numberIn(frame.substr(mark + 4, 4), true) & 1) != 0;
}
