// The tag in front of an MP3.
#include "host/sound/id3tag.h"

#include <sndfile.h>

#include <array>
#include <cstddef>

namespace {

struct Frame {
  int type;
  const char* id;
};

constexpr std::array<Frame, 10> kFrames = {{
    {SF_STR_TITLE, "TIT2"},
    {SF_STR_COPYRIGHT, "TCOP"},
    {SF_STR_SOFTWARE, "TSSE"},
    {SF_STR_ARTIST, "TPE1"},
    {SF_STR_COMMENT, "COMM"},
    {SF_STR_DATE, "TDRC"},
    {SF_STR_ALBUM, "TALB"},
    {SF_STR_LICENSE, "TXXX"},  // which is named
    {SF_STR_TRACKNUMBER, "TRCK"},
    {SF_STR_GENRE, "TCON"},
}};

constexpr char kUtf8 = 3;

// Four bytes of seven bits, so that none looks like the beginning of sound.
std::string sizeBytes(std::size_t size) {
  std::string bytes;
  for (int shift = 21; shift >= 0; shift -= 7) bytes += static_cast<char>(size >> shift & 0x7F);
  return bytes;
}

}  // namespace

std::string id3Tag(const std::vector<std::pair<int, std::string>>& texts) {
  std::string frames;
  for (const auto& [type, text] : texts) {
    for (const Frame& frame : kFrames) {
      if (frame.type != type) continue;
      std::string body(1, kUtf8);
      // of no language, without a description
      if (type == SF_STR_COMMENT) body += std::string("XXX") + '\0';
      if (type == SF_STR_LICENSE) body += std::string("LICENSE") + '\0';
      body += text;
      frames += frame.id + sizeBytes(body.size()) + std::string(2, '\0') + body;
    }
  }
  if (frames.empty()) return {};
  return std::string("ID3\4\0\0", 6) + sizeBytes(frames.size()) + frames;
}
