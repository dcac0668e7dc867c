// Whole-file access on the system's buffered streams, and path splitting.
#include "platform/xplatfile.h"

#include <cstdio>
#include <cstring>
#include <string>

#include "platform/paths.h"

namespace {

std::FILE* stream(void* handle) {
  return static_cast<std::FILE*>(handle);
}

// In bytes; stands at the start afterwards.
long lengthOf(std::FILE* file) {
  if (file == nullptr) return 0;
  long length = 0;
  if (std::fseek(file, 0, SEEK_END) == 0) length = std::ftell(file);
  std::rewind(file);
  return length > 0 ? length : 0;
}

}  // namespace

long XPlatFileOpen(const char* fileName, const char* dir, void** handle, bool forWrite) {
  const std::string path = std::string(dir) + fileName;
  std::FILE* file = std::fopen(path.c_str(), forWrite ? "wb+" : "rb+");
  *handle = file;
  return lengthOf(file);
}

// A folder opens for reading as well, and a pipe would wait for somebody who writes.
long XPlatFileOpenToRead(const char* fileName, const char* dir, void** handle) {
  const long length = XPlatFileOpen(fileName, dir, handle, false);
  if (*handle != nullptr) return length;
  const std::string path = std::string(dir) + fileName;
  if (!isFile(path)) return 0;
  std::FILE* file = std::fopen(path.c_str(), "rb");
  *handle = file;
  return lengthOf(file);
}

long XPlatFileRead(void* handle, char* buffer, long count) {
  if (handle == nullptr || count <= 0) return 0;
  return static_cast<long>(std::fread(buffer, 1, static_cast<std::size_t>(count), stream(handle)));
}

long XPlatFileWrite(void* handle, const char* buffer, long count) {
  if (handle == nullptr || count <= 0) return 0;
  return static_cast<long>(std::fwrite(buffer, 1, static_cast<std::size_t>(count), stream(handle)));
}

void XPlatFileClose(void* handle) {
  if (handle != nullptr) std::fclose(stream(handle));
}

void XPlatGetFileNameAndDir(const char* path, char* fileName, char* dir) {
  const char* slash = std::strrchr(path, '/');
  if (slash == nullptr) return;
  const auto dirLength = static_cast<std::size_t>(slash + 1 - path);
  const std::size_t nameLength = std::strlen(slash + 1);
  if (dirLength >= kXPlatPathPartSize || nameLength >= kXPlatPathPartSize) return;
  std::memcpy(dir, path, dirLength);
  dir[dirLength] = 0;
  std::memcpy(fileName, slash + 1, nameLength + 1);
}
