// Small files read and written at once.
#include "host/base/wholefile.h"

#include <cstring>
#include <fstream>
#include <system_error>

#include "host/base/failure.h"
#include "host/base/temporaryfile.h"
#include "host/base/writeall.h"

std::vector<unsigned char> readWholeFile(const std::filesystem::path& file) {
  std::error_code error;
  if (!std::filesystem::exists(file, error)) throw Failure(file.string() + ": no such file");
  if (std::filesystem::is_directory(file, error)) throw Failure(file.string() + ": is a folder");
  const auto size = std::filesystem::file_size(file, error);
  if (error) throw cannotRead(file, error.message());
  if (size == 0) throw Failure(file.string() + ": is empty");
  if (size > kLargestState) throw Failure(file.string() + ": too large");
  std::vector<unsigned char> bytes(size);
  std::ifstream in(file, std::ios::binary);
  if (!in.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size))) {
    throw Failure(file.string() + ": cannot be read");
  }
  return bytes;
}

void writeWholeFile(const std::filesystem::path& file, std::span<const unsigned char> bytes,
                    bool replace) {
  TemporaryFile temporary(file, replace);
  const int error = writeAll(temporary.descriptor(), bytes.data(), bytes.size());
  if (error != 0) throw cannotWrite(file, std::strerror(error));
  temporary.keep();
}
