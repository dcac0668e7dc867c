// A file in memory, by memfd_create.
#include "fuzz/memoryfile.h"

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "fuzz/require.h"

namespace fuzz {

MemoryFile::MemoryFile() : file(memfd_create("trelvan-fuzz", MFD_CLOEXEC)) {
  require(file >= 0, "a file in memory can be made");
}

MemoryFile::~MemoryFile() {
  close(file);
}

std::string MemoryFile::path() const {
  return "/proc/self/fd/" + std::to_string(file);
}

void MemoryFile::write(std::span<const unsigned char> content) {
  const bool written = ftruncate(file, 0) == 0 && pwrite(file, content.data(), content.size(), 0) ==
                                                      static_cast<ssize_t>(content.size());
  require(written, "the file in memory can be written");
}

std::vector<unsigned char> MemoryFile::content() const {
  struct stat status {};
  require(fstat(file, &status) == 0, "the file in memory has a size");
  std::vector<unsigned char> bytes(static_cast<std::size_t>(status.st_size));
  require(pread(file, bytes.data(), bytes.size(), 0) == status.st_size,
          "the file in memory can be read");
  return bytes;
}

}  // namespace fuzz
