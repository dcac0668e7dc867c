// What an output could not keep.
#include "host/sound/metadataloss.h"

#include <algorithm>
#include <string_view>

#include "host/sound/rifflist.h"
#include "host/sound/tagnames.h"

namespace {

std::string nameOf(int textType) {
  switch (textType) {
    case SF_STR_TITLE:
      return "title";
    case SF_STR_COPYRIGHT:
      return "copyright";
    case SF_STR_ARTIST:
      return "artist";
    case SF_STR_COMMENT:
      return "comment";
    case SF_STR_DATE:
      return "date";
    case SF_STR_ALBUM:
      return "album";
    case SF_STR_LICENSE:
      return "licence";
    case SF_STR_TRACKNUMBER:
      return "track number";
    default:
      return "genre";
  }
}

void addTexts(const Metadata& input, const Metadata& written, std::vector<std::string>& lost) {
  for (const auto& text : input.texts) {
    const auto& there = written.texts;
    if (text.first == SF_STR_SOFTWARE) continue;
    if (std::find(there.begin(), there.end(), text) == there.end())
      lost.push_back(nameOf(text.first));
  }
}

void addCues(const Metadata& input, const Metadata& written, std::vector<std::string>& lost) {
  std::size_t missing = 0;
  std::size_t nameless = 0;
  for (const SF_CUE_POINT& cue : input.cues) {
    const auto at = [&](const SF_CUE_POINT& other) {
      return other.sample_offset == cue.sample_offset;
    };
    const auto named = [&](const SF_CUE_POINT& other) {
      return at(other) && std::string_view(other.name) == cue.name;
    };
    if (std::none_of(written.cues.begin(), written.cues.end(), at)) {
      ++missing;
    } else if (std::none_of(written.cues.begin(), written.cues.end(), named)) {
      ++nameless;
    }
  }
  if (missing != 0) lost.push_back(std::to_string(missing) + (missing == 1 ? " cue" : " cues"));
  if (nameless != 0) lost.push_back("names of cues");
}

void addInstrument(const Metadata& input, const Metadata& written, std::vector<std::string>& lost) {
  if (!input.instrument) return;
  if (!written.instrument) {
    lost.push_back(input.instrument->loop_count > 0 ? "instrument and loops" : "instrument");
    return;
  }
  const SF_INSTRUMENT& before = *input.instrument;
  const SF_INSTRUMENT& after = *written.instrument;
  bool same = before.loop_count == after.loop_count;
  for (int loop = 0; same && loop < before.loop_count; ++loop) {
    same = before.loops[loop].start == after.loops[loop].start &&
           before.loops[loop].end == after.loops[loop].end;
  }
  if (!same) lost.push_back("loops");
}

std::string nameOf(const KeptChunk& chunk) {
  std::string id = chunk.id;
  while (id.ends_with(' ')) id.pop_back();
  return "chunk " + id;
}

bool isThere(const KeptChunk& chunk, const std::vector<KeptChunk>& written) {
  std::string bytes = chunk.bytes;
  if (chunk.id == "LIST" && !evenOutList(bytes)) return false;
  return std::any_of(written.begin(), written.end(), [&](const KeptChunk& other) {
    return chunk.whole && other.id == chunk.id && other.bytes.starts_with(bytes);
  });
}

// Of those with its name.
bool isLast(const KeptChunk& chunk, const std::vector<KeptChunk>& all) {
  const auto last = std::find_if(all.rbegin(), all.rend(),
                                 [&](const KeptChunk& other) { return other.id == chunk.id; });
  return last != all.rend() && &*last == &chunk;
}

// Of another kind of file, only what the library knows of a chunk can have been written anew.
void addUntold(const KeptChunk& chunk, const Metadata& input, std::vector<std::string>& lost) {
  static constexpr std::string_view kTexts =
      "INFOINAM INFOIART INFOICOP INFOICMT INFOICRD INFOIGNR INFOIPRD INFOITRK INFOISFT adtllabl";
  static constexpr std::string_view kNames = "NAME AUTH (c) ";
  if (chunk.id == "LIST") {
    for (const std::string& name : namesInList(chunk.bytes)) {
      if (kTexts.find(name) != std::string_view::npos) continue;
      const bool isText = name.starts_with("INFO");
      lost.push_back((isText ? "text " : "chunk ") + name.substr(4));
    }
    return;
  }
  if (chunk.id == "info") {
    const std::vector<std::string> names = unknownTexts(chunk.bytes);
    lost.insert(lost.end(), names.begin(), names.end());
    return;
  }
  const bool told =
      (chunk.id == "bext" && !input.broadcast.empty()) ||
      ((chunk.id == "cue " || chunk.id == "MARK") && !input.cues.empty()) ||
      ((chunk.id == "smpl" || chunk.id == "inst" || chunk.id == "INST") && input.instrument) ||
      // anybody's data; of a program that signs so it is the program's name
      (chunk.id == "APPL" && chunk.bytes.starts_with("m3ga")) ||
      (chunk.id == "ANNO" && isLast(chunk, input.chunks)) ||  // of several the library returns that
      kNames.find(chunk.id) != std::string_view::npos;
  if (!told) lost.push_back(nameOf(chunk));
}

}  // namespace

std::vector<std::string> notKept(const Metadata& input, const Metadata& written,
                                 std::optional<ChunkFamily> output) {
  std::vector<std::string> lost;
  addTexts(input, written, lost);
  if (!input.broadcast.empty() && written.broadcast.empty()) lost.emplace_back("broadcast data");
  const bool alike = input.family && input.family == output;
  if (alike) {
    for (const KeptChunk& chunk : input.chunks) {
      const bool isApart = chunk.id == "bext" || chunk.id == "(c) ";  // told above
      if (!isApart && !isThere(chunk, written.chunks)) lost.push_back(nameOf(chunk));
    }
  } else {
    addCues(input, written, lost);
    addInstrument(input, written, lost);
    for (const KeptChunk& chunk : input.chunks) addUntold(chunk, input, lost);
  }
  lost.insert(lost.end(), input.others.begin(), input.others.end());
  std::vector<std::string> once;
  for (std::string& name : lost) {
    if (std::find(once.begin(), once.end(), name) == once.end()) once.push_back(std::move(name));
  }
  return once;
}
