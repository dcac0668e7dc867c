// What a sound file says beside its sound.
#include "host/sound/metadata.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <memory>
#include <string_view>

#include "host/sound/cuechunks.h"
#include "host/sound/tagnames.h"
#include "platform/validtext.h"

namespace {

constexpr std::size_t kMostChunks = 1000;  // that are kept of one file

// By the library's types, but for the program that made the file, which comes last.
constexpr std::array<int, 10> kTextTypes = {
    SF_STR_TITLE, SF_STR_COPYRIGHT, SF_STR_ARTIST,      SF_STR_COMMENT, SF_STR_DATE,
    SF_STR_ALBUM, SF_STR_LICENSE,   SF_STR_TRACKNUMBER, SF_STR_GENRE,   SF_STR_SOFTWARE};

// Older programs wrote the texts of WAV and AIFF in Latin-1; all other types want UTF-8.
std::string utf8Of(const std::string& text) {
  if (validText(text) == text) return text;
  std::string wide;
  for (const char letter : text) {
    const auto byte = static_cast<unsigned char>(letter);
    if (byte < 0x80) {
      wide += letter;
    } else {
      wide += static_cast<char>(0xC0 | byte >> 6);
      wide += static_cast<char>(0x80 | (byte & 0x3F));
    }
  }
  return wide;
}

std::vector<std::pair<int, std::string>> textsOf(SNDFILE* file) {
  std::vector<std::pair<int, std::string>> texts;
  for (const int type : kTextTypes) {
    const char* text = sf_get_string(file, type);
    if (text != nullptr && *text != 0) texts.emplace_back(type, utf8Of(text));
  }
  return texts;
}

// The library puts a point for every byte of it that is no plain letter.
void takeCopyright(const std::vector<KeptChunk>& chunks,
                   std::vector<std::pair<int, std::string>>& texts) {
  for (const KeptChunk& chunk : chunks) {
    const std::string text = chunk.bytes.substr(0, chunk.bytes.find('\0'));
    if (chunk.id != "(c) " || text.empty()) continue;
    for (auto& [type, shown] : texts) {
      if (type == SF_STR_COPYRIGHT) shown = utf8Of(text);
    }
  }
}

std::string broadcastOf(SNDFILE* file) {
  using Info = SF_BROADCAST_INFO_VAR(16384);  // the most that the library keeps
  const auto info = std::make_unique<Info>();
  const int size = sizeof(Info);
  if (sf_command(file, SFC_GET_BROADCAST_INFO, info.get(), size) == 0) return {};
  const std::size_t history =
      std::min<std::size_t>(info->coding_history_size, sizeof info->coding_history);
  return {reinterpret_cast<const char*>(info.get()), offsetof(Info, coding_history) + history};
}

std::vector<SF_CUE_POINT> cuesOf(SNDFILE* file) {
  constexpr std::size_t kMost = 10000;
  SF_CUES head{};
  std::uint32_t count = 0;
  // the library counts where it was told more than there are
  if (sf_command(file, SFC_GET_CUE_COUNT, &count, sizeof count) == 0 || count == 0) return {};
  const std::size_t places = std::min<std::size_t>(count, kMost);
  std::vector<char> bytes(offsetof(SF_CUES, cue_points) + places * sizeof(SF_CUE_POINT));
  if (sf_command(file, SFC_GET_CUE, bytes.data(), static_cast<int>(bytes.size())) == 0) return {};
  std::memcpy(&head.cue_count, bytes.data(), sizeof head.cue_count);
  std::vector<SF_CUE_POINT> cues(std::min<std::size_t>(head.cue_count, places));
  std::memcpy(cues.data(), bytes.data() + offsetof(SF_CUES, cue_points),
              cues.size() * sizeof(SF_CUE_POINT));
  for (SF_CUE_POINT& cue : cues) cue.name[sizeof cue.name - 1] = 0;
  return cues;
}

std::optional<SF_INSTRUMENT> instrumentOf(SNDFILE* file) {
  SF_INSTRUMENT instrument{};
  if (sf_command(file, SFC_GET_INSTRUMENT, &instrument, sizeof instrument) == 0)
    return std::nullopt;
  constexpr int kMostLoops = sizeof instrument.loops / sizeof instrument.loops[0];
  instrument.loop_count = std::clamp(instrument.loop_count, 0, kMostLoops);
  return instrument;
}

void readChunks(const FileBytes& file, ChunkWalk& walk, Metadata& data) {
  data.family = walk.family();
  std::vector<char> buffer;
  std::size_t room = kMostHeaderBytes;  // no output has more
  while (const auto chunk = walk.next()) {
    if (data.chunks.size() == kMostChunks) return;
    if (describesSamples(walk.family(), chunk->id)) continue;
    const bool isBroadcast = chunk->id == "bext";  // the library has it
    KeptChunk kept{chunk->id, {}, chunk->size <= room};
    if (kept.whole && !isBroadcast) {
      room -= static_cast<std::size_t>(chunk->size);
      const std::string_view bytes =
          file.at(chunk->begin, static_cast<std::size_t>(chunk->size), buffer);
      if (bytes.size() != chunk->size) return;  // cut short
      kept.bytes = bytes;
    }
    data.chunks.push_back(std::move(kept));
  }
}

}  // namespace

bool Metadata::empty() const {
  return texts.empty() && broadcast.empty() && cues.empty() && !instrument && chunks.empty() &&
         others.empty();
}

Metadata readMetadata(SNDFILE* file, int descriptor) {
  Metadata data;
  data.texts = textsOf(file);
  data.broadcast = broadcastOf(file);
  data.cues = cuesOf(file);
  data.instrument = instrumentOf(file);
  const FileBytes bytes(descriptor);
  if (auto walk = ChunkWalk::into(bytes)) {
    readChunks(bytes, *walk, data);
    if (data.family == ChunkFamily::form) {
      data.cues = cuesAmongMarkers(data.chunks);
      takeCopyright(data.chunks, data.texts);
    }
    if (data.family == ChunkFamily::riff) takeKeyRange(data.chunks, data.instrument);
  } else {
    data.others = unknownTags(bytes);
  }
  return data;
}

bool describesSamples(ChunkFamily family, const std::string& id) {
  static constexpr std::string_view kRiff =
      "fmt fact data PEAK ds64 JUNK junk PAD  FLLR filr levl wavl slnt";
  static constexpr std::string_view kForm = "COMM SSND FVER PEAK CHAN FLLR BODY VHDR";
  static constexpr std::string_view kCaf = "desc data free peak pakt kuki chan ovvw";
  const std::string_view all = family == ChunkFamily::form  ? kForm
                               : family == ChunkFamily::caf ? kCaf
                                                            : kRiff;
  const bool isWord = std::all_of(
      id.begin(), id.end(), [](unsigned char letter) { return letter >= ' ' && letter < 0x7F; });
  return !isWord || all.find(id) != std::string_view::npos;
}
