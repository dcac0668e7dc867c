// How widen says that something cannot be done: one line for the person, and the exit status it
// leads to.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

enum class ExitStatus : int { done = 0, failed = 1, wrongUsage = 2 };

// Thrown anywhere below run(), shown as "widen: <text>". The text says what, where, and what to do;
// no newline.
class Failure : public std::runtime_error {
 public:
  explicit Failure(const std::string& text, ExitStatus leadsTo = ExitStatus::failed)
      : std::runtime_error(text), exitStatus(leadsTo) {}

  ExitStatus status() const { return exitStatus; }

 private:
  ExitStatus exitStatus;
};

// The command line cannot be meant as it stands.
class UsageFailure : public Failure {
 public:
  explicit UsageFailure(const std::string& text) : Failure(text, ExitStatus::wrongUsage) {}
};

// What the system does not let be done with a file, and its reason.
inline Failure cannotRead(const std::filesystem::path& file, const std::string& reason) {
  return Failure(file.string() + ": cannot be read (" + reason + ")");
}
inline Failure cannotWrite(const std::filesystem::path& file, const std::string& reason) {
  return Failure(file.string() + ": cannot be written (" + reason + ")");
}
