// What the person sees: results on the standard output, errors, warnings and progress on the
// standard error stream.
#pragma once

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <mutex>
#include <string>

// Any thread. Whole lines only; the progress line gives way to them and comes back.
class Console {
 public:
  // wordsAside: results in words go to the standard error stream, since a document has the standard
  // output; what an effect prints goes there too. Throws Failure.
  explicit Console(bool quiet, bool wordsAside = false);
  ~Console();
  Console(const Console&) = delete;
  Console& operator=(const Console&) = delete;

  void say(const std::string& text);    // results; not if quiet. Ends with a newline or gets one
  void print(const std::string& text);  // what was asked for, quiet or not
  void warn(const std::string& text);   // errors and warnings, "widen: <text>", one line
  // Throws Failure where something of the results did not reach the standard output.
  void checkPrinted();

  // Progress over everything, shown from the first half second on, on a terminal, if not quiet.
  bool showsProgress() const { return progressWanted; }
  void expect(std::int64_t frames, int files);
  void advance(std::int64_t frames);
  void fileDone();

 private:
  using Clock = std::chrono::steady_clock;

  void clearProgress();
  void showProgress(Clock::time_point now);

  const bool quiet;
  const bool aside;
  std::FILE* const results;  // the standard output
  const bool progressWanted;
  std::mutex lock;
  int printError = 0;  // the system's, of the first text that was lost
  bool progressShown = false;
  Clock::time_point start;
  Clock::time_point lastShown;
  std::int64_t expectedFrames = 0;
  std::int64_t doneFrames = 0;
  int expectedFiles = 0;
  int doneFiles = 0;
};
