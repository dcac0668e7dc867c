// What a sound file says beside its sound: texts, broadcast data, cues, loops, and chunks of any
// kind.
#pragma once

#include <sndfile.h>

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/sound/chunkwalk.h"

// A chunk as it stands in its file.
struct KeptChunk {
  std::string id;  // four letters
  std::string bytes;
  bool whole = true;  // too long for any header: its bytes are left out
};

struct Metadata {
  std::vector<std::pair<int, std::string>> texts;  // the library's string types
  std::string broadcast;                           // SF_BROADCAST_INFO with its whole history
  std::vector<SF_CUE_POINT> cues;
  std::optional<SF_INSTRUMENT> instrument;
  // What the file is made of, without what describes its samples.
  std::optional<ChunkFamily> family;
  std::vector<KeptChunk> chunks;
  // Names of what neither the library nor a chunk shows: pictures, texts of other kinds.
  std::vector<std::string> others;

  bool empty() const;
};

// Bytes of a header that the library is sure to write; beyond them it leaves out what it has
// announced.
constexpr std::size_t kMostHeaderBytes = 50000;

// file: open for reading; descriptor: of the same file.
Metadata readMetadata(SNDFILE* file, int descriptor);

// The chunk is about the samples themselves, which become others: their format, peaks, pictures.
bool describesSamples(ChunkFamily family, const std::string& id);
