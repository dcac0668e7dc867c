// The chunks of a sound file, one after the other: each an identifier, a size and that many bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/sound/filebytes.h"

// form: AIFF, 8SVX. riff is WAV, RF64 too; rifx the same with its numbers the other way round.
enum class ChunkFamily { riff, rifx, form, w64, caf };

struct Chunk {
  std::string id;          // its first four letters
  std::int64_t begin = 0;  // of its bytes
  std::uint64_t size = 0;
  std::size_t sizeField = 0;  // bytes that name the size
};

bool holdsSound(const Chunk& chunk);

class ChunkWalk {
 public:
  // None where the file is not made of chunks.
  static std::optional<ChunkWalk> into(const FileBytes& file);

  ChunkFamily family() const;
  // None after the last one, and after one that is longer than the file.
  std::optional<Chunk> next();

 private:
  ChunkWalk(const FileBytes& opened, std::size_t kind);

  FileBytes file;
  std::size_t kind;  // row of a table
  std::int64_t offset;
  std::optional<std::uint64_t> wide;  // the sound's size, where 32 bits cannot hold it
  int left;                           // chunks that are still looked at
  std::vector<char> buffer;
};
