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
#include <utility>

#include "host/base/failure.h"
#include "host/base/standardstreams.h"
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

// first: what was read of it already.
void copyAll(int from, int to, const std::string& first, const std::filesystem::path& path) {
  int error = writeAll(to, first.data(), first.size());
  std::array<char, 1 << 16> piece{};  // bytes: what a pipe holds
  while (error == 0) {
    const ssize_t count = read(from, piece.data(), piece.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw cannotRead(path, std::strerror(errno));
    if (count == 0) break;
    error = writeAll(to, piece.data(), static_cast<std::size_t>(count));
  }
  if (error != 0) cannotKeep(path, std::strerror(error));
  if (lseek(to, 0, SEEK_CUR) == 0) throw Failure(path.string() + ": is empty");
}

int opened(const std::filesystem::path& path) {
  if (!isStandardStream(path)) return open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (isatty(STDIN_FILENO) != 0)
    throw Failure("the standard input is a terminal: send a sound into it, or name a file");
  return fcntl(STDIN_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
}

struct Descriptor {
  ~Descriptor() {
    if (value >= 0) close(value);
  }
  int value;
};

}  // namespace

InputFile::InputFile(const std::filesystem::path& path, bool asItComes) {
  const std::filesystem::path shown = shownInput(path);
  Descriptor source{opened(path)};
  if (source.value < 0) throw cannotRead(shown, std::strerror(errno));
  struct stat status {};
  const bool known = fstat(source.value, &status) == 0;
  const bool pipe = known && (S_ISFIFO(status.st_mode) || S_ISSOCK(status.st_mode) ||
                              (isStandardStream(path) && !S_ISREG(status.st_mode)));
  named = !pipe && !isStandardStream(path);
  if (pipe && asItComes) wav = std::make_unique<WavStream>(source.value);
  const bool streams = wav && wav->isWav();
  if (!pipe || streams) {
    handle = std::exchange(source.value, -1);
    return;
  }
  Descriptor file{namelessFile(shown)};
  copyAll(source.value, file.value, wav ? wav->head() : std::string(), shown);
  wav.reset();
  handle = std::exchange(file.value, -1);
}

InputFile::~InputFile() {
  if (handle >= 0) close(handle);
}
