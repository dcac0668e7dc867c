// What a check is given.
#include "host/validate/trial.h"

#include <unistd.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <utility>

namespace {

// FNV-1a, 64 bits: the same number for a name on every system, unlike std::hash.
std::uint64_t hashOf(const std::string& name) {
  std::uint64_t hash = 0xCBF29CE484222325;
  for (const char c : name) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
  return hash;
}

}  // namespace

Trial::Trial(std::filesystem::path plugin, int strictness, std::uint64_t seed,
             const std::string& checkName, TrialReport& toReport)
    : binary(std::move(plugin)),
      strict(strictness),
      generator(seed ^ hashOf(checkName)),
      report(toReport) {}

int Trial::rounds(int usual) const {
  constexpr int kUsualStrictness = 5;
  return std::max(1, usual * strict / kUsualStrictness);
}

// Not by the library's distributions, whose numbers differ from one library to the next.
int Trial::randomInt(int lowest, int highest) {
  const auto span = static_cast<std::uint64_t>(highest - lowest) + 1;
  return lowest + static_cast<int>(generator() % span);
}

float Trial::randomUnit() {
  constexpr int kUnusedBits = 40;  // 24 are left, which a float takes
  constexpr float kStep = 1.0F / (1 << 24);
  return static_cast<float>(generator() >> kUnusedBits) * kStep;
}

void Trial::step(const char* format, ...) {
  std::va_list values;
  va_start(values, format);
  std::vsnprintf(report.step, sizeof report.step, format, values);
  va_end(values);
}

void Trial::fail(const char* format, ...) {
  std::va_list values;
  va_start(values, format);
  std::vsnprintf(report.text, sizeof report.text, format, values);
  va_end(values);
  report.outcome = CheckOutcome::failed;
  throw TrialEnded();
}

void Trial::failAtOnce(const char* format, ...) {
  std::va_list values;
  va_start(values, format);
  std::vsnprintf(report.text, sizeof report.text, format, values);
  va_end(values);
  report.outcome = CheckOutcome::failed;
  _exit(0);
}

void Trial::leaveOut(const char* format, ...) {
  std::va_list values;
  va_start(values, format);
  std::vsnprintf(report.text, sizeof report.text, format, values);
  va_end(values);
  report.outcome = CheckOutcome::leftOut;
  throw TrialEnded();
}

void Trial::note(const char* format, ...) {
  std::va_list values;
  va_start(values, format);
  std::vsnprintf(report.text, sizeof report.text, format, values);
  va_end(values);
}
