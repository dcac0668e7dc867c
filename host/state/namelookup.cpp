// Finds a preset or a parameter by its number or its name.
#include "host/state/namelookup.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <optional>

#include "host/base/failure.h"
#include "host/base/nearnames.h"
#include "host/base/text.h"
#include "host/state/values.h"

namespace {

constexpr std::size_t kMostDigits = 6;  // more than any effect has programs

bool isNumber(const std::string& text) {
  return !text.empty() && text.size() <= kMostDigits &&
         std::all_of(text.begin(), text.end(),
                     [](unsigned char digit) { return std::isdigit(digit) != 0; });
}

std::optional<int> findName(const std::vector<std::string>& names, const std::string& wanted) {
  auto found = std::find(names.begin(), names.end(), wanted);
  if (found == names.end()) {
    found = std::find_if(names.begin(), names.end(),
                         [&](const std::string& name) { return sameLetters(name, wanted); });
  }
  return found == names.end() ? std::nullopt
                              : std::optional(static_cast<int>(found - names.begin()));
}

// what: "preset", after an option's name where one was typed.
[[noreturn]] void refuseNumber(const std::string& what, const std::string& wanted,
                               std::size_t count) {
  throw Failure(what + " " + wanted + "; they are numbered 0 to " + std::to_string(count - 1));
}

[[noreturn]] void refuseName(const std::string& what, const std::string& wanted,
                             const std::vector<std::string>& names, const std::string& listOption) {
  const std::string near = suggestion(names, wanted);
  throw Failure(what + " \"" + wanted + "\"" +
                (near.empty() ? "; " + listOption + " shows them" : near));
}

}  // namespace

int findPreset(const std::vector<std::string>& names, const std::string& wanted) {
  static const std::string kNone = "there is no preset";
  if (const auto named = findName(names, wanted)) return *named;
  if (!isNumber(wanted)) refuseName(kNone, wanted, names, "--list-presets");
  const int number = std::stoi(wanted);
  if (number >= static_cast<int>(names.size())) refuseNumber(kNone, wanted, names.size());
  return number;
}

int findParameter(const std::vector<std::string>& names, const std::string& wanted,
                  const std::string& option) {
  const std::string none = option + "there is no parameter";
  if (const auto named = findName(names, wanted)) return *named;
  const auto typed = readNumber(wanted);
  if (!typed || !typed->unit.empty()) refuseName(none, wanted, names, "--list-params");
  const bool isThere = typed->number >= 0 && typed->number < static_cast<double>(names.size());
  if (!isThere || typed->number != std::floor(typed->number)) {
    refuseNumber(none, wanted, names.size());
  }
  return static_cast<int>(typed->number);
}
