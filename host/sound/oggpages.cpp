// The pages of an Ogg file.
#include "host/sound/oggpages.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <string>

namespace ogg {
namespace {

constexpr std::size_t kStreamField = 14;  // offset of the stream's number, 4 bytes

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

}  // namespace

bool isPage(std::string_view head) {
  return head.starts_with("OggS");
}

std::string_view segmentsOf(std::string_view page) {
  return page.substr(kHead, static_cast<unsigned char>(page[kHead - 1]));
}

std::string_view pageAt(const FileBytes& file, std::int64_t offset, std::vector<char>& buffer) {
  const std::string_view head = file.at(offset, kHead, buffer);
  if (!isPage(head)) return {};
  std::size_t size = kHead + static_cast<unsigned char>(head.back());
  const std::string_view table = file.at(offset, size, buffer);
  if (table.empty()) return {};
  for (const char segment : segmentsOf(table)) size += static_cast<unsigned char>(segment);
  return file.at(offset, size, buffer);
}

std::uint32_t pageSum(std::string_view page) {
  std::uint32_t sum = 0;
  for (std::size_t i = 0; i < page.size(); ++i) {
    const bool ownField = i >= kSumField && i < kSumField + 4;
    sum = added(sum, ownField ? 0 : static_cast<unsigned char>(page[i]));
  }
  return sum;
}

int numberStreamByContents(int descriptor) {
  const FileBytes file(descriptor);
  std::vector<char> buffer;
  std::uint32_t number = 0;
  std::int64_t at = 0;
  for (std::string_view page; !(page = pageAt(file, at, buffer)).empty();) {
    for (const char byte : page.substr(kHead))
      number = added(number, static_cast<unsigned char>(byte));
    at += static_cast<std::int64_t>(page.size());
  }
  at = 0;
  for (std::string page; !(page = pageAt(file, at, buffer)).empty();) {
    page.replace(kStreamField, 4, bytesOf(number, 4, false));
    page.replace(kSumField, 4, bytesOf(pageSum(page), 4, false));
    if (pwrite(descriptor, page.data(), page.size(), at) != static_cast<ssize_t>(page.size()))
      return errno != 0 ? errno : ENOSPC;
    at += static_cast<std::int64_t>(page.size());
  }
  return 0;
}

}  // namespace ogg
