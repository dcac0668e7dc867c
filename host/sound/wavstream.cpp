// A WAV that is read from a pipe as it comes.
#include "host/sound/wavstream.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string_view>

#include "host/sound/completeness.h"
#include "host/sound/filebytes.h"

namespace {

constexpr std::size_t kLongestHeader = 1 << 24;  // bytes: pictures in it and the like
constexpr std::uint64_t kOpenLength = std::uint64_t{1} << 61;

// Samples that lie one after the other: whole numbers, floating point, A-law, u-law; in the plain
// and in the extensible header.
bool isPlain(std::string_view format) {
  constexpr std::size_t kPlain = 16, kExtensible = 40;  // bytes
  if (format.size() < kPlain) return false;
  std::uint64_t tag = numberIn(format.substr(0, 2), false);
  if (tag == 0xFFFE && format.size() >= kExtensible) tag = numberIn(format.substr(24, 2), false);
  return tag == 1 || tag == 3 || tag == 6 || tag == 7;
}

}  // namespace

WavStream::WavStream(int descriptor) : pipe(descriptor) {
  wav = parse();
}

bool WavStream::have(std::size_t bytes) {
  while (header.size() < bytes) {
    const std::size_t before = header.size();
    header.resize(bytes);
    const ssize_t count = read(pipe, header.data() + before, bytes - before);
    if (count < 0 && errno != EINTR) error = errno;
    header.resize(before + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    if (count == 0 || error != 0) return false;
  }
  return true;
}

bool WavStream::parse() {
  constexpr std::size_t kForm = 12, kChunkHead = 8;
  if (!have(kForm)) return false;
  const bool wide = header.starts_with("RF64");
  if (!(wide || header.starts_with("RIFF")) || header.compare(8, 4, "WAVE") != 0) return false;
  bool plain = false;
  std::uint64_t wideSize = 0;
  for (std::size_t at = kForm; at < kLongestHeader;) {
    if (!have(at + kChunkHead)) return false;
    const std::string id = header.substr(at, 4);
    const std::uint64_t size = numberIn(std::string_view(header).substr(at + 4, 4), false);
    at += kChunkHead;
    if (id == "data") {
      const bool isWide = wide && size == 0xFFFFFFFF;
      const std::uint64_t bytes = isWide ? wideSize : size;
      left = bytes == 0 || isLeftOpen(bytes, isWide ? 8 : 4);
      soundBytes = static_cast<std::int64_t>(left ? kOpenLength : bytes);
      if (left && plain) nameOpenLength(at);
      return plain;
    }
    if (size > kLongestHeader || !have(at + size)) return false;
    const std::string_view contents = std::string_view(header).substr(at, size);
    if (id == "fmt ") plain = isPlain(contents);
    if (id == "ds64" && size >= 16) wideSize = numberIn(contents.substr(8, 8), false);
    at += size + size % 2;
  }
  return false;
}

// As the library reads on for ever: in the successor of WAV, whose sizes have 64 bits.
void WavStream::nameOpenLength(std::size_t afterDataHead) {
  constexpr std::size_t kForm = 12, kDataHead = 8;
  renamed = header.starts_with("RIFF");
  std::string chunks = header.substr(kForm, afterDataHead - kDataHead - kForm);
  const auto old = chunks.find("ds64");
  if (old == 0) chunks.erase(0, 8 + numberIn(std::string_view(chunks).substr(4, 4), false));
  const std::string unknown = bytesOf(0xFFFFFFFF, 4, false);
  header = "RF64" + unknown + "WAVE" + "ds64" + bytesOf(28, 4, false) +
           bytesOf(kOpenLength + 1000, 8, false) + bytesOf(kOpenLength, 8, false) +
           bytesOf(0, 8, false) + bytesOf(0, 4, false) + chunks + "data" + unknown;
}

SNDFILE* WavStream::open(SF_INFO& info) {
  SF_VIRTUAL_IO io{};
  io.get_filelen = [](void* from) -> sf_count_t { return static_cast<WavStream*>(from)->length(); };
  io.seek = [](sf_count_t offset, int whence, void* from) -> sf_count_t {
    WavStream& stream = *static_cast<WavStream*>(from);
    if (whence == SEEK_CUR) offset += stream.position;
    if (whence == SEEK_END) offset += stream.length();
    return stream.position = offset;
  };
  io.read = [](void* bytes, sf_count_t count, void* from) -> sf_count_t {
    return static_cast<WavStream*>(from)->readSome(static_cast<char*>(bytes), count);
  };
  io.write = [](const void*, sf_count_t, void*) -> sf_count_t { return 0; };
  io.tell = [](void* from) -> sf_count_t { return static_cast<WavStream*>(from)->position; };
  opening = true;
  SNDFILE* file = sf_open_virtual(&io, SFM_READ, &info, this);
  opening = false;
  return file;
}

// The library looks at the first samples and steps back, before it reads them for good.
void WavStream::keep(const char* bytes, std::int64_t count) {
  header.append(bytes, static_cast<std::size_t>(count));
  soundBytes -= count;
  early += count;
}

std::int64_t WavStream::readSome(char* to, std::int64_t count) {
  const auto headBytes = static_cast<std::int64_t>(header.size());
  std::int64_t done = 0;
  if (position < headBytes) {
    done = std::clamp<std::int64_t>(headBytes - position, 0, count);
    std::copy_n(header.begin() + position, done, to);
    position += done;
  }
  const bool inOrder = position == headBytes + received;
  while (inOrder && done < count && received < soundBytes && error == 0) {
    const auto wanted = static_cast<std::size_t>(std::min(count - done, soundBytes - received));
    const ssize_t got = read(pipe, to + done, wanted);
    if (got == 0) break;
    if (got < 0 && errno != EINTR) error = errno;
    if (got < 0) continue;
    if (opening) {
      keep(to + done, got);
    } else {
      received += got;
    }
    done += got;
    position += got;
  }
  return done;
}

std::string WavStream::damage() const {
  if (error != 0) return std::string("cannot be read (") + std::strerror(error) + ")";
  if (left) return {};
  return shortfallText(static_cast<std::uint64_t>(soundBytes + early),
                       static_cast<std::uint64_t>(received + early));
}
