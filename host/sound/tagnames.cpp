// What tags a file has that the library does not show.
#include "host/sound/tagnames.h"

#include <algorithm>
#include <cctype>
#include <string_view>

#include "host/base/text.h"
#include "host/sound/oggpages.h"

namespace {

constexpr std::size_t kMostBytes = 1 << 24;  // of one tag that are looked through
constexpr std::size_t kMostNames = 20;       // of tags; more make no line readable

void add(std::vector<std::string>& names, const std::string& name) {
  if (names.size() < kMostNames && std::find(names.begin(), names.end(), name) == names.end())
    names.push_back(name);
}

// A list of "KEY=value", each with its length in front, as FLAC and Ogg have it.
void addComments(std::string_view list, std::vector<std::string>& names) {
  static constexpr std::string_view kKnown =
      " title copyright software encoder artist comment date album license tracknumber genre ";
  const auto length = [&]() -> std::size_t {
    if (list.size() < 4) return 0;
    const std::uint64_t bytes = numberIn(list.substr(0, 4), false);
    list.remove_prefix(4);
    return static_cast<std::size_t>(std::min<std::uint64_t>(bytes, list.size()));
  };
  list.remove_prefix(length());  // the encoder's name
  if (list.size() < 4) return;
  list.remove_prefix(4);  // how many follow
  std::vector<std::string> met;
  while (!list.empty()) {
    const std::size_t size = length();
    if (size == 0) return;
    const std::string key =
        lowerCase(list.substr(0, std::min(list.substr(0, size).find('='), size)));
    list.remove_prefix(size);
    const bool isPicture = key == "metadata_block_picture" || key == "coverart";
    // of several with one name the library returns one
    const bool again = std::find(met.begin(), met.end(), key) != met.end();
    met.push_back(key);
    if (isPicture) {
      add(names, "picture");
    } else if (again || kKnown.find(" " + key + " ") == std::string_view::npos) {
      add(names, "text " + key);
    }
  }
}

std::vector<std::string> flacTags(const FileBytes& file) {
  enum Block : unsigned char { application = 2, comments = 4, cueSheet = 5, picture = 6 };
  std::vector<std::string> names;
  std::vector<char> buffer;
  std::int64_t at = 4;  // after the magic
  for (bool last = false; !last;) {
    const std::string_view head = file.at(at, 4, buffer);
    if (head.empty()) break;
    last = (static_cast<unsigned char>(head[0]) & 0x80) != 0;
    const int type = head[0] & 0x7F;
    const auto size = static_cast<std::size_t>(numberIn(head.substr(1, 3), true));
    at += 4;
    if (type == application) add(names, "application data");
    if (type == cueSheet) add(names, "cue sheet");
    if (type == picture) add(names, "picture");
    if (type == comments) addComments(file.at(at, size, buffer), names);
    at += static_cast<std::int64_t>(size);
  }
  return names;
}

// The second packet of the first stream, from its pages; a packet ends with a segment that is not
// full.
std::string secondPacket(const FileBytes& file) {
  std::string packet;
  std::vector<char> buffer;
  int number = 0;
  for (std::int64_t at = 0; packet.size() < kMostBytes;) {
    std::string_view page = ogg::pageAt(file, at, buffer);
    if (page.empty()) break;
    at += static_cast<std::int64_t>(page.size());
    const std::string_view segments = ogg::segmentsOf(page);
    page.remove_prefix(ogg::kHead + segments.size());
    for (const char segment : segments) {
      const auto size = static_cast<unsigned char>(segment);
      if (number == 1) packet += page.substr(0, size);
      page.remove_prefix(size);
      if (size < 255 && number++ == 1) return packet;
    }
  }
  return packet;
}

std::vector<std::string> oggTags(const FileBytes& file) {
  std::vector<std::string> names;
  const std::string packet = secondPacket(file);
  for (const std::string_view magic : {"\3vorbis", "OpusTags"}) {
    if (packet.starts_with(magic))
      addComments(std::string_view(packet).substr(magic.size()), names);
  }
  return names;
}

// Version 2.3 and 2.4; 2.2 has shorter names, which few files still have.
std::vector<std::string> id3Tags(const FileBytes& file) {
  static constexpr std::string_view kKnown =
      " TIT2 TCOP TENC TSSE TPE1 TALB TRCK TYER TDRC TDAT TIME TDRA TCON TLEN COMM ";
  std::vector<std::string> names;
  std::vector<char> buffer;
  const std::string head(file.at(0, 10, buffer));
  if (head.empty()) return names;
  const bool newer = head[3] >= 4;  // frames' sizes have seven bits a byte
  const auto end = 10 + static_cast<std::int64_t>(sevenBitsIn(head.substr(6, 4)));
  for (std::int64_t at = 10; at + 10 <= end;) {
    const std::string frame(file.at(at, 10, buffer));
    if (frame.empty() || std::isupper(static_cast<unsigned char>(frame[0])) == 0) break;
    const std::string id = frame.substr(0, 4);
    const std::string_view size = std::string_view(frame).substr(4, 4);
    at += 10 + static_cast<std::int64_t>(newer ? sevenBitsIn(size) : numberIn(size, true));
    if (id == "APIC") {
      add(names, "picture");
    } else if (kKnown.find(" " + id + " ") == std::string_view::npos) {
      add(names, (id[0] == 'T' ? "text " : "tag ") + id);
    }
  }
  return names;
}

}  // namespace

std::vector<std::string> unknownTags(const FileBytes& file) {
  std::vector<char> buffer;
  const std::string magic(file.at(0, 4, buffer));
  if (magic == "fLaC") return flacTags(file);
  if (magic == "OggS") return oggTags(file);
  if (magic.starts_with("ID3")) return id3Tags(file);
  return {};
}

// How many there are, then a key and a text in turn, each with a zero at its end. The library knows
// the keys in small letters alone.
std::vector<std::string> unknownTexts(std::string_view infoChunk) {
  static constexpr std::string_view kKnown =
      " title copyright software encoder artist comment comments date album license tracknumber "
      "genre ";
  constexpr std::size_t kCount = 4;  // bytes
  std::vector<std::string> names;
  infoChunk.remove_prefix(std::min(kCount, infoChunk.size()));
  const auto next = [&] {
    std::string word(infoChunk.substr(0, infoChunk.find('\0')));
    infoChunk.remove_prefix(std::min(word.size() + 1, infoChunk.size()));
    return word;
  };
  while (!infoChunk.empty()) {
    const std::string key = next();
    const bool isText = !next().empty() && !key.empty();
    if (isText && kKnown.find(" " + key + " ") == std::string_view::npos) add(names, "text " + key);
  }
  return names;
}
