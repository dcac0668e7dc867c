// What the person sees.
#include "host/cli/console.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "host/base/failure.h"
#include "host/base/standardstreams.h"
#include "host/base/text.h"

namespace {

constexpr std::chrono::milliseconds kBeforeFirst{500};  // short runs show none
constexpr std::chrono::milliseconds kBetween{100};
constexpr int kBarWidth = 30;  // characters

// Returns 0, or the system's error.
int put(std::FILE* stream, const std::string& text) {
  if (stream == nullptr) return EBADF;  // nobody could open it
  errno = 0;
  std::fwrite(text.data(), 1, text.size(), stream);
  if (text.empty() || text.back() != '\n') std::fputc('\n', stream);
  std::fflush(stream);
  if (std::ferror(stream) == 0) return 0;
  return errno != 0 ? errno : EIO;
}

}  // namespace

Console::Console(bool beQuiet, bool wordsAside)
    : quiet(beQuiet),
      aside(wordsAside),
      results(aside ? fdopen(standardOutputForDocument(), "w") : stdout),
      progressWanted(!beQuiet && isatty(STDERR_FILENO) != 0),
      start(Clock::now()),
      lastShown(start) {}

Console::~Console() {
  clearProgress();
  if (results != nullptr && results != stdout) std::fclose(results);
}

void Console::say(const std::string& text) {
  if (quiet) return;
  if (!aside) return print(text);
  const std::lock_guard guard(lock);
  clearProgress();
  put(stderr, text);
}

void Console::print(const std::string& text) {
  const std::lock_guard guard(lock);
  clearProgress();
  const int error = put(results, text);
  if (printError == 0) printError = error;
}

void Console::checkPrinted() {
  const std::lock_guard guard(lock);
  if (printError == 0) return;
  throw Failure(std::string("the standard output cannot be written (") + std::strerror(printError) +
                ")");
}

void Console::warn(const std::string& text) {
  const std::lock_guard guard(lock);
  clearProgress();
  put(stderr, "widen: " + onOneLine(text));
}

void Console::expect(std::int64_t frames, int files) {
  const std::lock_guard guard(lock);
  expectedFrames = frames;
  expectedFiles = files;
  start = Clock::now();
}

void Console::advance(std::int64_t frames) {
  const std::lock_guard guard(lock);
  doneFrames += frames;
  const auto now = Clock::now();
  if (progressWanted && now - start >= kBeforeFirst && now - lastShown >= kBetween)
    showProgress(now);
}

void Console::fileDone() {
  const std::lock_guard guard(lock);
  ++doneFiles;
}

void Console::clearProgress() {
  if (progressShown) std::fputs("\r\033[K", stderr);  // to the line's begin, and empty it
  progressShown = false;
}

void Console::showProgress(Clock::time_point now) {
  const double done =
      expectedFrames > 0
          ? std::min(1.0, static_cast<double>(doneFrames) / static_cast<double>(expectedFrames))
          : 0.0;
  const double seconds = std::chrono::duration<double>(now - start).count();
  const int full = static_cast<int>(done * kBarWidth);
  std::string line = "\r\033[K[" + std::string(static_cast<std::size_t>(full), '#') +
                     std::string(static_cast<std::size_t>(kBarWidth - full), '.') + "]" +
                     formatted(" %3.0f %%", done * 100.0);
  if (done > 0.0) line += "  " + formatted("%.0f s left", seconds * (1.0 - done) / done);
  if (expectedFiles > 1) line += formatted("  %d of %d files", doneFiles, expectedFiles);
  std::fputs(line.c_str(), stderr);
  std::fflush(stderr);
  progressShown = true;
  lastShown = now;
}
