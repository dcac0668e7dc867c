// Gives an output what its input said beside the sound.
#include "host/sound/metadatawriting.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>

#include "host/sound/cuechunks.h"
#include "host/sound/rifflist.h"

namespace {

// The one text chunk of AIFF that readers show with the zeros that make it a multiple of four; as a
// text it gets none.
constexpr const char* kCopyright = "(c) ";

// What is left of a header that the library writes wholly.
class Room {
 public:
  // Whether there is room for so many bytes and their names; takes it then.
  bool take(std::size_t bytes) {
    constexpr std::size_t kName = 16;  // bytes, with the size and what makes it even
    if (bytes + kName > left) return false;
    left -= bytes + kName;
    return true;
  }

 private:
  // for the sound's format and what aligns it, 4096 bytes in CAF
  static constexpr std::size_t kOwn = 6000;
  std::size_t left = kMostHeaderBytes - kOwn;
};

// The library adds zeros to a chunk until its bytes are a multiple of four. Where they would be
// taken for something, what may stand there comes first. Returns whether the chunk can be written.
bool evenOut(const std::string& id, std::string& bytes) {
  const bool isDocument = id == "iXML" || id == "axml" || id == "_PMX";
  while (isDocument && bytes.size() % 4 != 0) bytes += ' ';
  return id != "LIST" || evenOutList(bytes);
}

bool setChunk(SNDFILE* file, const KeptChunk& chunk, Room& room) {
  std::string bytes = chunk.bytes;
  if (!chunk.whole || !evenOut(chunk.id, bytes) || !room.take(bytes.size())) return false;
  SF_CHUNK_INFO info{};
  std::copy(chunk.id.begin(), chunk.id.end(), info.id);
  info.id_size = static_cast<unsigned>(chunk.id.size());
  info.data = bytes.data();
  info.datalen = static_cast<unsigned>(bytes.size());
  return sf_set_chunk(file, &info) == SF_ERR_NO_ERROR;
}

bool holdsTexts(const KeptChunk& chunk) {
  static constexpr const char* kForm = "NAME AUTH ANNO";
  return (chunk.id == "LIST" && chunk.bytes.starts_with("INFO")) || chunk.id == "info" ||
         std::strstr(kForm, chunk.id.c_str()) != nullptr;
}

// Loudness and peaks are no longer those of this sound: they become "not told". The library adds
// a line to the history, and makes the version one that has loudness.
void setBroadcast(SNDFILE* file, const std::string& bytes, Room& room) {
  constexpr std::size_t kHistoryLine = 256;
  constexpr std::int16_t kNotTold = 0x7FFF;
  if (!room.take(bytes.size() + kHistoryLine)) return;
  using Info = SF_BROADCAST_INFO_VAR(16384);
  const auto info = std::make_unique<Info>();
  const std::size_t size = std::min(bytes.size(), sizeof(Info));
  std::memcpy(info.get(), bytes.data(), size);
  info->coding_history_size = static_cast<std::uint32_t>(size - offsetof(Info, coding_history));
  for (std::int16_t* figure :
       {&info->loudness_value, &info->loudness_range, &info->max_true_peak_level,
        &info->max_momentary_loudness, &info->max_shortterm_loudness}) {
    *figure = kNotTold;
  }
  sf_command(file, SFC_SET_BROADCAST_INFO, info.get(), static_cast<int>(size));
}

// room: null where the type has no limit.
void setText(SNDFILE* file, const std::pair<int, std::string>& text, Room* room) {
  if (room == nullptr || room->take(text.second.size()))
    sf_set_string(file, text.first, text.second.c_str());
}

void setCues(SNDFILE* file, std::vector<SF_CUE_POINT> cues, Room& room) {
  constexpr std::size_t kBytes = 24;  // of each in the file
  if (cues.empty() || !room.take(kBytes * cues.size())) return;
  for (SF_CUE_POINT& cue : cues) cue.position = cue.sample_offset;  // AIFF has no playlist
  std::vector<char> bytes(offsetof(SF_CUES, cue_points) + cues.size() * sizeof(SF_CUE_POINT));
  const auto count = static_cast<std::uint32_t>(cues.size());
  std::memcpy(bytes.data(), &count, sizeof count);
  std::memcpy(bytes.data() + offsetof(SF_CUES, cue_points), cues.data(),
              cues.size() * sizeof(SF_CUE_POINT));
  sf_command(file, SFC_SET_CUE, bytes.data(), static_cast<int>(bytes.size()));
  if (const auto names = cueNames(cues)) setChunk(file, *names, room);
}

void setInstrument(SNDFILE* file, SF_INSTRUMENT instrument, Room& room) {
  constexpr std::size_t kBytes = 36 + 16 * 24;  // with the most loops
  if (!room.take(kBytes)) return;
  sf_command(file, SFC_SET_INSTRUMENT, &instrument, sizeof instrument);
  setChunk(file, keyRange(instrument), room);
}

// Returns whether texts are among them.
bool setChunks(SNDFILE* file, const std::vector<KeptChunk>& chunks, Room& room) {
  bool hasTexts = false;
  for (const KeptChunk& chunk : chunks) {
    if (chunk.id == "bext" || chunk.id == kCopyright) continue;  // written apart
    if (setChunk(file, chunk, room) && holdsTexts(chunk)) hasTexts = true;
  }
  return hasTexts;
}

}  // namespace

std::optional<ChunkFamily> chunksOf(FileType type) {
  if (type == FileType::wav || type == FileType::rf64) return ChunkFamily::riff;
  if (type == FileType::aiff) return ChunkFamily::form;
  if (type == FileType::caf) return ChunkFamily::caf;
  return std::nullopt;
}

void writeMetadata(SNDFILE* file, FileType type, const Metadata& data) {
  const auto family = chunksOf(type);
  if (!family) {
    for (const auto& text : data.texts) setText(file, text, nullptr);
    return;
  }
  Room room;
  const bool alike = data.family == family;
  const bool hasTexts = alike && setChunks(file, data.chunks, room);
  for (const auto& text : data.texts) {
    const bool isApart = family == ChunkFamily::form && text.first == SF_STR_COPYRIGHT;
    if (!hasTexts || isApart) setText(file, text, &room);
  }
  if (!alike && family == ChunkFamily::riff) {
    setCues(file, data.cues, room);
    if (data.instrument) setInstrument(file, *data.instrument, room);
  }
  if (!alike && family == ChunkFamily::form) {
    for (const KeptChunk& chunk : markers(data.cues, data.instrument)) setChunk(file, chunk, room);
  }
  // last, since the library writes the header then
  if (family == ChunkFamily::riff && !data.broadcast.empty())
    setBroadcast(file, data.broadcast, room);
}
