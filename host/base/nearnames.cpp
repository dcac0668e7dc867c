// Names that come near to what a person typed.
#include "host/base/nearnames.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <utility>

#include "host/base/text.h"

namespace {

constexpr std::size_t kMostSuggestions = 3;

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
