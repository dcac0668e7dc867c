// Checksums of Ogg pages, bit by bit.
#include "fuzz/oggpages.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace fuzz {
namespace {

constexpr std::size_t kHead = 27;      // bytes in front of the list of segments' sizes
constexpr std::size_t kStreamAt = 14;  // the stream's number, four bytes
constexpr std::size_t kSumAt = 22;     // the checksum, four bytes, the lowest first

using Page = std::span<unsigned char>;

// The first page, none where there is no whole one.
Page firstPage(Page file) {
  constexpr unsigned char kMark[] = {'O', 'g', 'g', 'S'};
  if (file.size() < kHead || !std::equal(std::begin(kMark), std::end(kMark), file.begin()))
    return {};
  const std::size_t segments = file[kHead - 1];
  if (file.size() < kHead + segments) return {};
  const Page sizes = file.subspan(kHead, segments);
  const std::size_t size = std::accumulate(sizes.begin(), sizes.end(), kHead + segments);
  return size <= file.size() ? file.first(size) : Page();
}

std::uint32_t sumOf(Page page) {
  std::uint32_t sum = 0;
  for (const unsigned char byte : page) {
    for (unsigned bit = 0x80; bit != 0; bit >>= 1) {
      const bool carries = (sum & 0x80000000U) != 0;
      sum = sum << 1 | ((byte & bit) != 0 ? 1U : 0U);
      if (carries) sum ^= 0x04C11DB7U;
    }
  }
  for (int bit = 0; bit < 32; ++bit) {  // what is still in the register
    const bool carries = (sum & 0x80000000U) != 0;
    sum = sum << 1;
    if (carries) sum ^= 0x04C11DB7U;
  }
  return sum;
}

}  // namespace

void putPageSumsRight(std::span<unsigned char> file) {
  for (Page page = firstPage(file); !page.empty(); page = firstPage(file)) {
    const Page field = page.subspan(kSumAt, 4);
    std::fill(field.begin(), field.end(), static_cast<unsigned char>(0));
    const std::uint32_t sum = sumOf(page);
    for (std::size_t at = 0; at < 4; ++at) field[at] = static_cast<unsigned char>(sum >> (8 * at));
    file = file.subspan(page.size());
  }
}

void setStreamNumber(std::span<unsigned char> file, unsigned char number) {
  for (Page page = firstPage(file); !page.empty(); page = firstPage(file)) {
    const Page field = page.subspan(kStreamAt, 4);
    std::fill(field.begin(), field.end(), static_cast<unsigned char>(0));
    field[0] = number;
    file = file.subspan(page.size());
  }
}

}  // namespace fuzz
