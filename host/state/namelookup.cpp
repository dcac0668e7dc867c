// Finds a preset or a parameter by its number or its name.
#include "host/state/namelookup.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <numeric>
#include <optional>
#include <utility>

#include "host/base/failure.h"
#include "host/base/text.h"
#include "host/state/values.h"

namespace {

constexpr std::size_t kMostSuggestions = 3;
constexpr std::size_t kMostDigits = 6;  // more than any effect has programs

bool isNumber(const std::string& text) {
  return !text.empty() && text.size() <= kMostDigits &&
         std::all_of(text.begin(), text.end(),
                     [](unsigned char digit) { return std::isdigit(digit) != 0; });
}

// Letters to insert, delete, replace or swap with their neighbour to make one text of the other.
std::size_t editDistance(const std::string& a, const std::string& b) {
  std::vector<std::vector<std::size_t>> cost(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
  for (std::size_t i = 0; i <= a.size(); ++i) cost[i][0] = i;
  std::iota(cost[0].begin(), cost[0].end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = cost[i - 1][j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1);
      cost[i][j] = std::min({cost[i - 1][j] + 1, cost[i][j - 1] + 1, replaced});
      const bool swapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (swapped) cost[i][j] = std::min(cost[i][j], cost[i - 2][j - 2] + 1);
    }
  }
  return cost[a.size()][b.size()];
}

// How far a name is from what was typed; none where a likeness would be chance. Both in lower case.
std::optional<std::size_t> distanceOf(const std::string& name, const std::string& wanted) {
  constexpr std::size_t kShortestPart = 2;  // letters
  constexpr std::size_t kShortestWord = 3;
  if (wanted.size() >= kShortestPart && name.find(wanted) != std::string::npos) return 1;
  const std::size_t distance = editDistance(wanted, name);
  if (distance <= std::max<std::size_t>(1, std::max(wanted.size(), name.size()) / 3))
    return distance;
  const std::string firstWord = wanted.substr(0, wanted.find(' '));
  const bool sharesFirstWord = firstWord.size() >= kShortestWord && name.starts_with(firstWord);
  return sharesFirstWord ? std::optional(distance) : std::nullopt;
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

std::vector<std::string> nearNames(const std::vector<std::string>& names,
                                   const std::string& wanted) {
  std::vector<std::pair<std::size_t, std::string>> near;
  for (const std::string& name : names) {
    if (name.empty()) continue;
    const auto distance = distanceOf(lowerCase(name), lowerCase(wanted));
    if (!distance) continue;
    const bool known = std::any_of(near.begin(), near.end(),
                                   [&](const auto& other) { return other.second == name; });
    if (!known) near.emplace_back(*distance, name);
  }
  std::stable_sort(near.begin(), near.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  if (near.size() > kMostSuggestions) near.resize(kMostSuggestions);
  std::vector<std::string> nearest;
  nearest.reserve(near.size());
  for (auto& [distance, name] : near) nearest.push_back(std::move(name));
  return nearest;
}

std::string suggestion(const std::vector<std::string>& names, const std::string& wanted) {
  const std::vector<std::string> near = nearNames(names, wanted);
  if (near.empty()) return {};
  std::string text = " (did you mean ";
  for (std::size_t i = 0; i < near.size(); ++i) {
    if (i != 0) text += i + 1 == near.size() ? " or " : ", ";
    text += "\"" + near[i] + "\"";
  }
  return text + "?)";
}

int findPreset(const std::vector<std::string>& names, const std::string& wanted) {
  static const std::string kNone = "there is no preset";
  if (const auto named = findName(names, wanted)) return *named;
  if (!isNumber(wanted)) refuseName(kNone, wanted, names, "--list-presets");
  const int number = std::stoi(wanted);
  if (number >= static_cast<int>(names.size())) refuseNumber(kNone, wanted, names.size());
  return number;
}

int findParameter(const std::vector<std::string>& names, const std::string& wanted) {
  static const std::string kNone = "--set: there is no parameter";
  if (const auto named = findName(names, wanted)) return *named;
  const auto typed = readNumber(wanted);
  if (!typed || !typed->unit.empty()) refuseName(kNone, wanted, names, "--list-params");
  const bool isThere = typed->number >= 0 && typed->number < static_cast<double>(names.size());
  if (!isThere || typed->number != std::floor(typed->number)) {
    refuseNumber(kNone, wanted, names.size());
  }
  return static_cast<int>(typed->number);
}
