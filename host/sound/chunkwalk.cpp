// The chunks of a sound file, one after the other.
#include "host/sound/chunkwalk.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

constexpr int kMostChunks = 100000;  // nobody writes more than some dozens

struct Kind {
  std::string_view magic;
  ChunkFamily family;
  std::int64_t first;  // offset of the first chunk
  std::size_t idBytes;
  std::size_t sizeBytes;
  bool bigEndian;
  bool countsItself;    // the size is the whole chunk's
  std::int64_t padded;  // to a multiple of so many bytes
};

constexpr std::array<Kind, 6> kKinds = {{
    {"RIFF", ChunkFamily::riff, 12, 4, 4, false, false, 2},
    {"RF64", ChunkFamily::riff, 12, 4, 4, false, false, 2},
    {"RIFX", ChunkFamily::rifx, 12, 4, 4, true, false, 2},
    {"FORM", ChunkFamily::form, 12, 4, 4, true, false, 2},
    {"riff", ChunkFamily::w64, 40, 16, 8, false, true, 8},
    {"caff", ChunkFamily::caf, 8, 4, 8, true, false, 1},
}};

}  // namespace

bool holdsSound(const Chunk& chunk) {
  return chunk.id == "data" || chunk.id == "SSND" || chunk.id == "BODY";
}

std::optional<ChunkWalk> ChunkWalk::into(const FileBytes& file) {
  std::vector<char> buffer;
  const std::string magic(file.at(0, 4, buffer));
  for (std::size_t kind = 0; kind < kKinds.size(); ++kind) {
    if (magic == kKinds[kind].magic) return ChunkWalk(file, kind);
  }
  return std::nullopt;
}

ChunkWalk::ChunkWalk(const FileBytes& opened, std::size_t row)
    : file(opened), kind(row), offset(kKinds[row].first), left(kMostChunks) {}

ChunkFamily ChunkWalk::family() const {
  return kKinds[kind].family;
}

std::optional<Chunk> ChunkWalk::next() {
  const Kind& type = kKinds[kind];
  const std::size_t headBytes = type.idBytes + type.sizeBytes;
  const std::string_view head = file.at(offset, headBytes, buffer);
  if (head.empty() || left-- == 0) return std::nullopt;
  Chunk chunk;
  chunk.id = head.substr(0, 4);
  chunk.begin = offset + static_cast<std::int64_t>(headBytes);
  chunk.size = numberIn(head.substr(type.idBytes), type.bigEndian);
  chunk.sizeField = type.sizeBytes;
  if (type.countsItself) chunk.size -= std::min<std::uint64_t>(chunk.size, headBytes);
  // RF64 keeps the sizes that 32 bits cannot hold in a chunk of their own
  if (chunk.id == "ds64") {
    const std::string_view sizes = file.at(chunk.begin, 16, buffer);  // of the whole, of the sound
    if (!sizes.empty()) wide = numberIn(sizes.substr(8), false);
  }
  if (wide && holdsSound(chunk) && chunk.size == 0xFFFFFFFF) {
    chunk.size = *wide;
    chunk.sizeField = 8;
  }
  const bool fits =
      chunk.begin <= file.size && chunk.size <= static_cast<std::uint64_t>(file.size - chunk.begin);
  const auto bytes = static_cast<std::int64_t>(fits ? chunk.size : 0);
  offset =
      fits ? chunk.begin + bytes + (type.padded - bytes % type.padded) % type.padded : file.size;
  return chunk;
}
