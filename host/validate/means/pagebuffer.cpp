// Memory beyond whose end nothing may be touched.
#include "host/validate/means/pagebuffer.h"

#include <sys/mman.h>
#include <unistd.h>

#include "host/base/failure.h"

PageBuffer::PageBuffer(std::size_t count) : bytes(count) {
  const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  whole = (bytes + page - 1) / page * page;
  void* memory = mmap(nullptr, whole + 2 * page, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) throw Failure("not enough memory for a guarded buffer");
  mapping = static_cast<std::byte*>(memory);
  first = mapping + page;
  if (whole > 0 && mprotect(first, whole, PROT_READ | PROT_WRITE) != 0) {
    munmap(mapping, whole + 2 * page);
    throw Failure("not enough memory for a guarded buffer");
  }
}

PageBuffer::~PageBuffer() {
  munmap(mapping, whole + 2 * static_cast<std::size_t>(sysconf(_SC_PAGESIZE)));
}
