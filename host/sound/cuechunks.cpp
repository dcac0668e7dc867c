// Cues and loops as chunks.
#include "host/sound/cuechunks.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "host/sound/filebytes.h"

namespace {

constexpr std::int32_t kData = 'd' | 'a' << 8 | 't' << 16 | 'a' << 24;

int signedByte(char byte) {
  const int value = static_cast<unsigned char>(byte);
  return value < 0x80 ? value : value - 0x100;
}

std::uint64_t key(int note, int usual) {
  return static_cast<std::uint64_t>(note >= 0 && note <= 127 ? note : usual);
}

class Markers {
 public:
  // Returns its number.
  std::uint64_t add(std::uint64_t frame, std::string_view name) {
    constexpr std::size_t kLongest = 255;  // its length is one byte
    const std::string_view shown = name.substr(0, kLongest);
    list += bytesOf(++count, 2, true) + bytesOf(frame, 4, true);
    list += static_cast<char>(shown.size());
    list += shown;
    if (shown.size() % 2 == 0) list += '\0';  // even with its length
    return count;
  }
  KeptChunk chunk() const { return {"MARK", bytesOf(count, 2, true) + list, true}; }
  bool empty() const { return count == 0; }

 private:
  std::uint64_t count = 0;
  std::string list;
};

KeptChunk instrumentChunk(const SF_INSTRUMENT& instrument, Markers& marks) {
  constexpr int kMostLoops = 2;  // one while a key is held, one afterwards
  std::string bytes;
  bytes += static_cast<char>(key(instrument.basenote, 60));
  bytes += static_cast<char>(instrument.detune);
  bytes += static_cast<char>(key(instrument.key_lo, 0));
  bytes += static_cast<char>(key(instrument.key_hi, 127));
  bytes += static_cast<char>(key(instrument.velocity_lo, 0));
  bytes += static_cast<char>(key(instrument.velocity_hi, 127));
  bytes += bytesOf(static_cast<std::uint16_t>(instrument.gain), 2, true);
  for (int loop = 0; loop < kMostLoops; ++loop) {
    const auto& played = instrument.loops[loop];
    const bool there = loop < instrument.loop_count && played.mode != SF_LOOP_NONE;
    const bool bothWays = played.mode == SF_LOOP_ALTERNATING;
    bytes += bytesOf(there ? (bothWays ? 2 : 1) : 0, 2, true);
    bytes += bytesOf(there ? marks.add(played.start, "beg loop") : 0, 2, true);
    bytes += bytesOf(there ? marks.add(played.end, "end loop") : 0, 2, true);
  }
  return {"INST", bytes, true};
}

}  // namespace

std::optional<KeptChunk> cueNames(const std::vector<SF_CUE_POINT>& cues) {
  std::string list;
  for (const SF_CUE_POINT& cue : cues) {
    const std::string name = cue.name;
    if (name.empty()) continue;
    // with the zero that ends it
    list += "labl" + bytesOf(4 + name.size() + 1, 4, false);
    list += bytesOf(static_cast<std::uint32_t>(cue.indx), 4, false) + name + '\0';
    if (name.size() % 2 == 0) list += '\0';
  }
  if (list.empty()) return std::nullopt;
  return KeptChunk{"LIST", "adtl" + list, true};
}

KeptChunk keyRange(const SF_INSTRUMENT& instrument) {
  std::string bytes;
  bytes += static_cast<char>(key(instrument.basenote, 60));
  bytes += static_cast<char>(instrument.detune);
  bytes += static_cast<char>(instrument.gain);
  bytes += static_cast<char>(key(instrument.key_lo, 0));
  bytes += static_cast<char>(key(instrument.key_hi, 127));
  bytes += static_cast<char>(key(instrument.velocity_lo, 0));
  bytes += static_cast<char>(key(instrument.velocity_hi, 127));
  return {"inst", bytes + '\0', true};
}

void takeKeyRange(const std::vector<KeptChunk>& chunks, std::optional<SF_INSTRUMENT>& instrument) {
  const bool hasLoops = std::any_of(chunks.begin(), chunks.end(),
                                    [](const KeptChunk& chunk) { return chunk.id == "smpl"; });
  if (hasLoops && !instrument) return;  // of RF64 the library reads none
  for (const KeptChunk& chunk : chunks) {
    if (chunk.id != "inst" || chunk.bytes.size() < 7) continue;
    if (!instrument) instrument.emplace();
    // loops have a note of their own, to which this is the same
    if (instrument->loop_count == 0) instrument->basenote = chunk.bytes[0];
    instrument->detune = chunk.bytes[1];
    instrument->gain = signedByte(chunk.bytes[2]);
    instrument->key_lo = chunk.bytes[3];
    instrument->key_hi = chunk.bytes[4];
    instrument->velocity_lo = chunk.bytes[5];
    instrument->velocity_hi = chunk.bytes[6];
  }
}

std::vector<SF_CUE_POINT> cuesAmongMarkers(const std::vector<KeptChunk>& chunks) {
  constexpr std::size_t kMarker = 7;        // bytes, with the length of its name
  std::vector<std::uint64_t> ofLoops;       // numbers of markers
  constexpr std::array kLoops = {8U, 14U};  // where they are in an instrument
  std::vector<SF_CUE_POINT> cues;
  for (const KeptChunk& chunk : chunks) {
    const std::string_view bytes = chunk.bytes;
    if (chunk.id != "INST" || bytes.size() < 20) continue;
    for (const std::size_t loop : kLoops) {
      if (numberIn(bytes.substr(loop, 2), true) == 0) continue;  // off
      ofLoops.push_back(numberIn(bytes.substr(loop + 2, 2), true));
      ofLoops.push_back(numberIn(bytes.substr(loop + 4, 2), true));
    }
  }
  for (const KeptChunk& chunk : chunks) {
    std::string_view bytes = chunk.bytes;
    if (chunk.id != "MARK" || bytes.size() < 2) continue;
    std::uint64_t count = numberIn(bytes.substr(0, 2), true);
    bytes.remove_prefix(2);
    for (; count > 0 && bytes.size() >= kMarker; --count) {
      SF_CUE_POINT cue{};
      const std::uint64_t number = numberIn(bytes.substr(0, 2), true);
      cue.indx = static_cast<std::int32_t>(number);
      cue.fcc_chunk = kData;
      cue.sample_offset = static_cast<std::uint32_t>(numberIn(bytes.substr(2, 4), true));
      const auto length = static_cast<unsigned char>(bytes[6]);
      bytes.remove_prefix(kMarker);
      const std::string_view name = bytes.substr(0, length);
      std::copy(name.begin(), name.end(), cue.name);
      bytes.remove_prefix(
          std::min<std::size_t>(length + (length % 2 == 0 ? 1U : 0U), bytes.size()));
      if (std::find(ofLoops.begin(), ofLoops.end(), number) == ofLoops.end()) cues.push_back(cue);
    }
  }
  return cues;
}

std::vector<KeptChunk> markers(const std::vector<SF_CUE_POINT>& cues,
                               const std::optional<SF_INSTRUMENT>& instrument) {
  Markers marks;
  std::vector<KeptChunk> chunks;
  if (instrument) chunks.push_back(instrumentChunk(*instrument, marks));
  for (const SF_CUE_POINT& cue : cues) marks.add(cue.sample_offset, cue.name);
  if (!marks.empty()) chunks.insert(chunks.begin(), marks.chunk());
  return chunks;
}
