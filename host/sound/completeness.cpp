// Whether a sound file is whole, as far as the file says itself.
#include "host/sound/completeness.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "host/sound/oggpages.h"

namespace {

constexpr int kMostChunks = 100000;  // before the sound; nobody writes more than some dozens

// Bounded looks into a file.
struct Bytes {
  int descriptor;
  std::int64_t size;

  std::string_view at(std::int64_t offset, std::size_t count, std::vector<char>& buffer) const {
    if (offset < 0 || offset > size - static_cast<std::int64_t>(count)) return {};
    buffer.resize(count);
    const ssize_t got = pread(descriptor, buffer.data(), count, offset);
    return {buffer.data(), got == static_cast<ssize_t>(count) ? count : 0};
  }
};

std::uint64_t number(std::string_view bytes, bool bigEndian) {
  std::uint64_t value = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    value = value << 8 | static_cast<unsigned char>(bytes[bigEndian ? i : bytes.size() - 1 - i]);
  }
  return value;
}

// What a writer names that cannot go back and does not know the length: the most that a size can be
// or nearly so, less a header or a part of a block. Four bytes are seen at 2^31 or 2^32, and in
// AIFF at 0x7F000000.
bool leftOpen(std::uint64_t size, std::size_t fieldBytes) {
  if (fieldBytes == 8) return size >= std::uint64_t{1} << 62;
  constexpr std::uint64_t kNear = 0x10000;
  constexpr std::array<std::uint64_t, 3> kOpen = {0x7F000000, 0x80000000, 0x100000000};
  return std::any_of(kOpen.begin(), kOpen.end(), [size](std::uint64_t open) {
    return size + kNear >= open && size <= open + kNear;
  });
}

std::string shortfall(const Bytes& file, std::int64_t begin, std::uint64_t named,
                      std::size_t fieldBytes) {
  const auto there = static_cast<std::uint64_t>(std::max<std::int64_t>(file.size - begin, 0));
  if (named <= there || leftOpen(named, fieldBytes)) return {};
  return "is cut short: its header names " + std::to_string(named) + " bytes of sound, " +
         std::to_string(there) + " are there";
}

// A file of chunks, each an identifier, a size and that many bytes.
struct Chunks {
  std::string_view magic;
  std::int64_t first;  // offset of the first chunk
  std::size_t idBytes;
  std::size_t sizeBytes;
  bool bigEndian;
  bool countsItself;    // the size is the whole chunk's
  std::int64_t padded;  // to a multiple of so many bytes
};

constexpr std::array<Chunks, 6> kChunks = {{
    {"RIFF", 12, 4, 4, false, false, 2},
    {"RF64", 12, 4, 4, false, false, 2},
    {"RIFX", 12, 4, 4, true, false, 2},
    {"FORM", 12, 4, 4, true, false, 2},   // AIFF, 8SVX
    {"riff", 40, 16, 8, false, true, 8},  // W64
    {"caff", 8, 4, 8, true, false, 1},
}};

std::string shortfallInChunks(const Bytes& file, const Chunks& type) {
  std::vector<char> buffer;
  // RF64 keeps the sizes that 32 bits cannot hold in a chunk of their own
  std::optional<std::uint64_t> wide;
  std::int64_t offset = type.first;
  const std::size_t head = type.idBytes + type.sizeBytes;
  for (int count = 0; count < kMostChunks; ++count) {
    const std::string_view chunk = file.at(offset, head, buffer);
    if (chunk.empty()) return {};
    const std::string id(chunk.substr(0, 4));
    std::uint64_t size = number(chunk.substr(type.idBytes), type.bigEndian);
    offset += static_cast<std::int64_t>(head);
    if (type.countsItself) size -= std::min<std::uint64_t>(size, head);
    if (id == "data" || id == "SSND" || id == "BODY") {
      if (wide && size == 0xFFFFFFFF) return shortfall(file, offset, *wide, 8);
      return shortfall(file, offset, size, type.sizeBytes);
    }
    if (id == "ds64") {
      const std::string_view sizes = file.at(offset, 16, buffer);  // of the whole, of the sound
      if (!sizes.empty()) wide = number(sizes.substr(8), false);
    }
    if (offset > file.size || size > static_cast<std::uint64_t>(file.size - offset)) return {};
    const auto bytes = static_cast<std::int64_t>(size);
    offset += bytes + (type.padded - bytes % type.padded) % type.padded;
  }
  return {};
}

std::string shortfallInAu(const Bytes& file, bool bigEndian) {
  std::vector<char> buffer;
  const std::string_view fields = file.at(4, 8, buffer);  // the sound's offset and size
  if (fields.empty()) return {};
  const auto begin = static_cast<std::int64_t>(number(fields.substr(0, 4), bigEndian));
  return shortfall(file, begin, number(fields.substr(4), bigEndian), 4);
}

std::string damagedAt(std::int64_t byte) {
  return "is damaged at byte " + std::to_string(byte);
}

// Page by page, for the library leaves damaged ones out and takes the last whole one for the end.
std::string damageInOgg(const Bytes& file) {
  constexpr std::size_t kHead = 27;               // bytes, the last of which counts the segments
  constexpr unsigned char kEndOfStream = 1 << 2;  // in the sixth byte
  static constexpr const char* kCut = "has no last page: it is cut short, or a piece of a stream";
  std::vector<char> buffer;
  bool ended = false;
  for (std::int64_t at = 0; at < file.size;) {
    const std::string_view head = file.at(at, kHead, buffer);
    const bool isPage = head.starts_with("OggS");
    if (ended && !isPage) return {};  // tags after the end
    if (head.empty()) return kCut;
    if (!isPage) return damagedAt(at);
    const auto segments = static_cast<unsigned char>(head.back());
    std::size_t size = kHead + segments;
    for (const char segment : file.at(at + static_cast<std::int64_t>(kHead), segments, buffer)) {
      size += static_cast<unsigned char>(segment);
    }
    const std::string_view page = file.at(at, size, buffer);
    if (page.empty()) return kCut;
    if (pageSum(page) != number(page.substr(22, 4), false)) return damagedAt(at);
    ended = (static_cast<unsigned char>(page[5]) & kEndOfStream) != 0;
    at += static_cast<std::int64_t>(size);
  }
  return ended ? "" : kCut;
}

}  // namespace

std::string damageOf(int descriptor) {
  struct stat status {};
  if (fstat(descriptor, &status) != 0) return {};
  const Bytes file{descriptor, status.st_size};
  std::vector<char> buffer;
  const std::string magic(file.at(0, 4, buffer));
  if (magic == "OggS") return damageInOgg(file);
  if (magic == ".snd" || magic == "dns.") return shortfallInAu(file, magic == ".snd");
  for (const Chunks& type : kChunks) {
    if (magic == type.magic) return shortfallInChunks(file, type);
  }
  return {};
}
