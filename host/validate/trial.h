// What a check is given: the plug-in, what chance decides, and the words for its verdict.
#pragma once

#include <cstdint>
#include <exception>
#include <filesystem>
#include <random>
#include <string>

enum class CheckOutcome : int { none, passed, failed, leftOut };

// What a check tells of itself, in memory that its process shares with the validator's: it is read
// there after the check has crashed or been ended.
struct TrialReport {
  static constexpr std::size_t kLongestText = 1024;  // bytes, with the terminating zero

  CheckOutcome outcome = CheckOutcome::none;
  char text[kLongestText] = "";
  char step[kLongestText] = "";  // the last thing that was begun
};

// How a check ends before its last line: caught around it, nowhere else.
struct TrialEnded : std::exception {
  const char* what() const noexcept override { return "the check has its verdict"; }
};

class Trial {
 public:
  // report: outlives it. seed, checkName: the same two give the same chance.
  Trial(std::filesystem::path plugin, int strictness, std::uint64_t seed,
        const std::string& checkName, TrialReport& report);
  Trial(const Trial&) = delete;
  Trial& operator=(const Trial&) = delete;

  const std::filesystem::path& plugin() const { return binary; }
  int strictness() const { return strict; }  // 1..10
  // How often something is done that is done `usual` times at strictness 5.
  int rounds(int usual) const;

  std::mt19937_64& random() { return generator; }
  int randomInt(int lowest, int highest);  // both included
  float randomUnit();                      // 0..1, 1 not included

  // What is being done now: said where the effect crashes or hangs in it. Any thread.
  void step(const char* format, ...) __attribute__((format(printf, 2, 3)));

  // The verdicts. A check that returns has passed. On the check's thread.
  [[noreturn]] void fail(const char* format, ...) __attribute__((format(printf, 2, 3)));
  [[noreturn]] void leaveOut(const char* format, ...) __attribute__((format(printf, 2, 3)));
  // Said beside "pass".
  void note(const char* format, ...) __attribute__((format(printf, 2, 3)));

  // fail, where nothing can be thrown: on another thread, in a signal's handler. Ends the process.
  [[noreturn]] void failAtOnce(const char* format, ...) __attribute__((format(printf, 2, 3)));
  // Ends this process as a check does that has passed: for a check that ends it by exit().
  void passSoFar() { report.outcome = CheckOutcome::passed; }

 private:
  std::filesystem::path binary;
  int strict;
  std::mt19937_64 generator;
  TrialReport& report;
};
