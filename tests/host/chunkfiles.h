// Sound files made of chunks, byte by byte.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

// Numbers as they stand in a file: little-endian, or big-endian.
inline std::string little(std::uint64_t number, int bytes) {
  std::string text;
  for (int byte = 0; byte < bytes; ++byte, number /= 0x100)
    text += static_cast<char>(number % 0x100);
  return text;
}
inline std::string big(std::uint64_t number, int bytes) {
  const std::string text = little(number, bytes);
  return {text.rbegin(), text.rend()};
}

struct FileChunk {
  std::string id;
  std::string bytes;
};

// A WAV of 16 bits, stereo, 48000 Hz, with chunks in front of the sound and behind it.
inline std::string wavWith(const std::vector<FileChunk>& before,
                           const std::vector<FileChunk>& after = {}, std::size_t frames = 2000) {
  std::string sound;
  for (std::size_t frame = 0; frame < frames; ++frame)
    sound += little(frame * 37 % 2000, 2) + little(frame * 53 % 3000, 2);
  const auto chunk = [](const std::string& id, const std::string& bytes) {
    return id + little(bytes.size(), 4) + bytes + std::string(bytes.size() % 2, '\0');
  };
  std::string body = "WAVE" + chunk("fmt ", little(1, 2) + little(2, 2) + little(48000, 4) +
                                                little(192000, 4) + little(4, 2) + little(16, 2));
  for (const FileChunk& each : before) body += chunk(each.id, each.bytes);
  body += chunk("data", sound);
  for (const FileChunk& each : after) body += chunk(each.id, each.bytes);
  return "RIFF" + little(body.size(), 4) + body;
}

// What stands in a file of WAV's kind, or AIFF's.
inline std::vector<FileChunk> chunksIn(const std::string& file) {
  const bool isForm = file.starts_with("FORM");
  std::vector<FileChunk> chunks;
  for (std::size_t at = 12; at + 8 <= file.size();) {
    std::string size = file.substr(at + 4, 4);
    if (isForm) size = {size.rbegin(), size.rend()};
    std::uint64_t bytes = 0;
    for (std::size_t byte = 4; byte-- > 0;)
      bytes = bytes << 8 | static_cast<unsigned char>(size[byte]);
    const std::string id = file.substr(at, 4);
    if (id == "data" && bytes == 0xFFFFFFFF) break;  // RF64: the last one here
    chunks.push_back({id, file.substr(at + 8, bytes)});
    at += 8 + bytes + bytes % 2;
  }
  return chunks;
}
// The bytes of the chunk, of which there is one; what the library adds to make them a multiple of
// four is left out. `whole`: how many there were.
inline std::string chunkIn(const std::string& file, const std::string& id,
                           const std::string& beginning = "") {
  for (const FileChunk& chunk : chunksIn(file)) {
    if (chunk.id == id && chunk.bytes.starts_with(beginning)) return chunk.bytes;
  }
  return "none";
}
