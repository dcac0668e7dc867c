// Linux: where a loaded binary lies, from the loader's list.
#include "host/validate/means/mappedrange.h"

#include <link.h>

#include <algorithm>

namespace {

struct Search {
  const void* address;
  MappedRange found;
};

MappedRange rangeOf(const dl_phdr_info& binary) {
  MappedRange range;
  for (int i = 0; i < binary.dlpi_phnum; ++i) {
    const ElfW(Phdr)& segment = binary.dlpi_phdr[i];
    if (segment.p_type != PT_LOAD) continue;
    const auto* begin = reinterpret_cast<const char*>(binary.dlpi_addr + segment.p_vaddr);
    range.begin = range.begin == nullptr ? begin : std::min(range.begin, begin);
    range.end = std::max(range.end, begin + segment.p_memsz);
  }
  return range;
}

int look(dl_phdr_info* binary, std::size_t, void* context) {
  auto* search = static_cast<Search*>(context);
  const MappedRange range = rangeOf(*binary);
  if (!range.contains(search->address)) return 0;
  search->found = range;
  return 1;  // no further
}

}  // namespace

MappedRange rangeOfBinary(const void* address) {
  Search search{address, {}};
  dl_iterate_phdr(look, &search);
  return search.found;
}
