// Bounded looks into a file.
#include "host/sound/filebytes.h"

#include <sys/stat.h>
#include <unistd.h>

FileBytes::FileBytes(int opened) : descriptor(opened) {
  struct stat status {};
  if (fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode)) size = status.st_size;
}

std::string_view FileBytes::at(std::int64_t offset, std::size_t count,
                               std::vector<char>& buffer) const {
  if (offset < 0 || offset > size - static_cast<std::int64_t>(count)) return {};
  buffer.resize(count);
  const ssize_t got = pread(descriptor, buffer.data(), count, offset);
  return {buffer.data(), got == static_cast<ssize_t>(count) ? count : 0};
}

std::uint64_t numberIn(std::string_view bytes, bool bigEndian) {
  std::uint64_t value = 0;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    value = value << 8 | static_cast<unsigned char>(bytes[bigEndian ? i : bytes.size() - 1 - i]);
  }
  return value;
}

std::string bytesOf(std::uint64_t number, std::size_t count, bool bigEndian) {
  std::string bytes;
  for (std::size_t byte = 0; byte < count; ++byte)
    bytes += static_cast<char>(number >> 8 * (bigEndian ? count - 1 - byte : byte) & 0xFF);
  return bytes;
}

std::size_t sevenBitsIn(std::string_view bytes) {
  std::size_t value = 0;
  for (const char byte : bytes) value = value << 7 | (static_cast<unsigned char>(byte) & 0x7FU);
  return value;
}
