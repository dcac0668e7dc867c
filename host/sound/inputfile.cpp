// An input opened for reading.
#include "host/sound/inputfile.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <string>
#include <system_error>

#include "host/base/failure.h"
#include "host/base/writeall.h"

namespace {

[[noreturn]] void cannotKeep(const std::filesystem::path& path, const std::string& reason) {
  throw Failure(path.string() + ": cannot be kept while it is read (" + reason +
                "; TMPDIR names the folder that it is kept in)");
}

// path: for messages.
int namelessFile(const std::filesystem::path& path) {
  std::error_code error;
  const std::filesystem::path folder = std::filesystem::temp_directory_path(error);
  if (error) cannotKeep(path, error.message());
  std::string name = (folder / "widen-XXXXXX").string();
  const int handle = mkstemp(name.data());
  if (handle < 0) cannotKeep(path, std::strerror(errno));
  unlink(name.c_str());
  fcntl(handle, F_SETFD, FD_CLOEXEC);
  return handle;
}

void copyAll(int from, int to, const std::filesystem::path& path) {
  std::array<char, 1 << 16> piece{};  // bytes: what a pipe holds
  for (;;) {
    const ssize_t count = read(from, piece.data(), piece.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw cannotRead(path, std::strerror(errno));
    if (count == 0) break;
    const int error = writeAll(to, piece.data(), static_cast<std::size_t>(count));
    if (error != 0) cannotKeep(path, std::strerror(error));
  }
  if (lseek(to, 0, SEEK_CUR) == 0) throw Failure(path.string() + ": is empty");
  lseek(to, 0, SEEK_SET);
}

}  // namespace

InputFile::InputFile(const std::filesystem::path& path)
    : handle(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
  if (handle < 0) throw cannotRead(path, std::strerror(errno));
  struct stat status {};
  pipe = fstat(handle, &status) == 0 && (S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode));
  if (!pipe) return;
  const int source = handle;
  try {
    handle = -1;
    handle = namelessFile(path);
    copyAll(source, handle, path);
  } catch (...) {
    if (handle >= 0) close(handle);
    close(source);
    throw;
  }
  close(source);
}

InputFile::~InputFile() {
  if (handle >= 0) close(handle);
}
