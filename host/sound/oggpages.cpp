// The pages of an Ogg file.
#include "host/sound/oggpages.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <string>

namespace {

constexpr std::size_t kHead = 27;         // bytes, the last of which counts the segments
constexpr std::size_t kStreamField = 14;  // offset of the stream's number, 4 bytes
constexpr std::size_t kSumField = 22;     // offset of the page's checksum, 4 bytes

constexpr std::array<std::uint32_t, 256> kPageSums = [] {
  std::array<std::uint32_t, 256> sums{};
  for (std::uint32_t byte = 0; byte < 256; ++byte) {
    sums[byte] = byte << 24;
    for (int bit = 0; bit < 8; ++bit)
      sums[byte] = sums[byte] << 1 ^ (sums[byte] >> 31 != 0 ? 0x04C11DB7U : 0U);
  }
  return sums;
}();

std::uint32_t added(std::uint32_t sum, unsigned char byte) {
  return sum << 8 ^ kPageSums[sum >> 24 ^ byte];
}

// Returns the whole page that begins there; empty at the file's end, and where there is none.
std::string pageAt(int descriptor, off_t offset) {
  constexpr std::size_t kMostSegments = 255;
  std::string page(kHead + kMostSegments * (1 + 255), '\0');
  const ssize_t got = pread(descriptor, page.data(), page.size(), offset);
  if (got < static_cast<ssize_t>(kHead) || !page.starts_with("OggS")) return {};
  const auto segments = static_cast<unsigned char>(page[kHead - 1]);
  std::size_t size = kHead + segments;
  for (std::size_t i = 0; i < segments; ++i) size += static_cast<unsigned char>(page[kHead + i]);
  if (static_cast<ssize_t>(size) > got) return {};
  page.resize(size);
  return page;
}

void put(std::string& page, std::size_t offset, std::uint32_t number) {
  for (std::size_t byte = 0; byte < 4; ++byte)
    page[offset + byte] = static_cast<char>(number >> 8 * byte);
}

}  // namespace

std::uint32_t pageSum(std::string_view page) {
  std::uint32_t sum = 0;
  for (std::size_t i = 0; i < page.size(); ++i) {
    const bool ownField = i >= kSumField && i < kSumField + 4;
    sum = added(sum, ownField ? 0 : static_cast<unsigned char>(page[i]));
  }
  return sum;
}

int numberStreamByContents(int descriptor) {
  std::uint32_t number = 0;
  off_t offset = 0;
  for (std::string page; !(page = pageAt(descriptor, offset)).empty();) {
    for (std::size_t i = kHead; i < page.size(); ++i)
      number = added(number, static_cast<unsigned char>(page[i]));
    offset += static_cast<off_t>(page.size());
  }
  offset = 0;
  for (std::string page; !(page = pageAt(descriptor, offset)).empty();) {
    put(page, kStreamField, number);
    put(page, kSumField, pageSum(page));
    if (pwrite(descriptor, page.data(), page.size(), offset) != static_cast<ssize_t>(page.size()))
      return errno != 0 ? errno : ENOSPC;
    offset += static_cast<off_t>(page.size());
  }
  return 0;
}
