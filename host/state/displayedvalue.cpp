// Finds the value of a parameter by the text that the effect shows for it.
#include "host/state/displayedvalue.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "host/base/text.h"
#include "host/state/values.h"

namespace {

constexpr int kSteps = 1024;  // of 0..1: more than lists of waves and notes have entries

// A number in the unit that it is counted in: kHz in Hz, ms in s.
struct Quantity {
  double number = 0.0;
  double lastPlace = 1.0;  // what its last digit counts
  std::string unit;        // lower case; may be empty
};

double lastPlaceOf(const std::string& text) {
  const auto point = text.find('.');
  if (point == std::string::npos) return 1.0;
  const auto end = std::min(text.find_first_not_of("0123456789", point + 1), text.size());
  return std::pow(10.0, -static_cast<double>(end - point - 1));
}

std::optional<Quantity> quantityOf(const std::string& text) {
  const auto read = readNumber(text);
  if (!read) return std::nullopt;
  Quantity quantity{read->number, lastPlaceOf(text), read->unit};
  const auto inUnit = [&](const char* from, const char* to, double factor) {
    if (quantity.unit != from) return;
    quantity = {quantity.number * factor, quantity.lastPlace * factor, to};
  };
  inUnit("khz", "hz", 1000.0);
  inUnit("ms", "s", 0.001);
  return quantity;
}

std::string withoutBlanks(const std::string& text) {
  std::string kept = lowerCase(text);
  kept.erase(std::remove(kept.begin(), kept.end(), ' '), kept.end());
  return kept;
}

// What a parameter shows for one value.
struct Shown {
  std::string display, label;

  // Many effects have the unit in both.
  std::string withUnit() const {
    const bool isThere = label.empty() || withoutBlanks(display).ends_with(withoutBlanks(label));
    return isThere ? display : display + " " + label;
  }
};

Shown shownAt(Effect& effect, int index, float value) {
  effect.setParameter(index, value);
  return {effect.text(effGetParamDisplay, index), effect.text(effGetParamLabel, index)};
}

// What was typed, to be compared with what is shown.
class Wanted {
 public:
  explicit Wanted(const std::string& typed)
      : text(withoutBlanks(typed)), quantity(quantityOf(typed)) {}

  // How far what is shown is above it; none where the two cannot be compared.
  std::optional<double> distance(const Shown& shown) const {
    const auto other = comparable(shown);
    return other ? std::optional(other->number - quantity->number) : std::nullopt;
  }

  bool isShown(const Shown& shown) const {
    if (text == withoutBlanks(shown.display) || text == withoutBlanks(shown.withUnit()))
      return true;
    const auto above = distance(shown);
    return above && std::fabs(*above) <= kRounding * std::fabs(quantity->number);
  }
  // As near as the digits on either side tell.
  bool isNearlyShown(const Shown& shown) const {
    const auto other = comparable(shown);
    if (!other) return isShown(shown);
    const double tolerance = std::max(quantity->lastPlace, other->lastPlace) * (0.5 + kRounding);
    return std::fabs(other->number - quantity->number) <= tolerance;
  }

 private:
  static constexpr double kRounding = 1e-9;

  std::optional<Quantity> comparable(const Shown& shown) const {
    if (!quantity) return std::nullopt;
    const auto other = quantityOf(shown.withUnit());
    const bool same = other && (quantity->unit.empty() || quantity->unit == other->unit);
    return same ? other : std::nullopt;
  }

  std::string text;
  std::optional<Quantity> quantity;
};

class Search {
 public:
  Search(Effect& searched, int parameter, const std::string& typed)
      : effect(searched), index(parameter), wanted(typed) {
    for (int step = 0; step <= kSteps; ++step) all.push_back(at(valueOf(step)));
  }

  // present: what it is set to.
  std::optional<float> find(float present) {
    const auto first = std::find_if(all.begin(), all.end(),
                                    [&](const Shown& shown) { return wanted.isShown(shown); });
    if (first == all.end()) return findBetween();
    const auto last =
        std::find_if(first, all.end(), [&](const Shown& shown) { return !wanted.isShown(shown); }) -
        1;
    if (first == all.begin()) return last + 1 == all.end() ? present : 0.0F;
    if (last + 1 == all.end()) return 1.0F;
    const auto from = static_cast<int>(first - all.begin());
    const auto to = static_cast<int>(last - all.begin());
    return middle(valueOf(from - 1), valueOf(from), valueOf(to), valueOf(to + 1));
  }

 private:
  static float valueOf(int step) { return static_cast<float>(step) / kSteps; }
  Shown at(float value) { return shownAt(effect, index, value); }

  // Of the values that show it: those from `inside` to `last`, and what is between them and those
  // on either side that do not.
  float middle(float before, float inside, float last, float after) {
    const float lowest = edge(inside, before);
    const float highest = edge(last, after);
    return lowest + (highest - lowest) / 2.0F;
  }
  // The value nearest to `outside` that still shows it.
  float edge(float inside, float outside) {
    for (;;) {
      const float half = inside + (outside - inside) / 2.0F;
      if (half == inside || half == outside) return inside;
      (wanted.isShown(at(half)) ? inside : outside) = half;
    }
  }

  // No step shows it: between the two that it lies between.
  std::optional<float> findBetween() {
    for (int step = 0; step < kSteps; ++step) {
      const auto before = wanted.distance(all[static_cast<std::size_t>(step)]);
      const auto after = wanted.distance(all[static_cast<std::size_t>(step) + 1]);
      if (!before || !after || (*before < 0.0) == (*after < 0.0)) continue;
      if (const auto value = narrowed(valueOf(step), valueOf(step + 1), *before < 0.0))
        return value;
    }
    return std::nullopt;
  }
  std::optional<float> narrowed(float from, float to, bool rises) {
    for (;;) {
      const float half = from + (to - from) / 2.0F;
      if (half == from || half == to) return nearer(from, to);
      const Shown shown = at(half);
      if (wanted.isShown(shown)) return middle(from, half, half, to);
      const auto distance = wanted.distance(shown);
      if (!distance) return std::nullopt;
      ((*distance < 0.0) == rises ? from : to) = half;
    }
  }
  std::optional<float> nearer(float from, float to) {
    const Shown below = at(from);
    const Shown above = at(to);
    const bool first = std::fabs(*wanted.distance(below)) <= std::fabs(*wanted.distance(above));
    if (!wanted.isNearlyShown(first ? below : above)) return std::nullopt;
    return first ? from : to;
  }

  Effect& effect;
  int index;
  Wanted wanted;
  std::vector<Shown> all;  // by step
};

// A parameter that is as it was when this goes.
class Kept {
 public:
  Kept(Effect& held, int parameter)
      : value(held.parameter(parameter)), effect(held), index(parameter) {}
  ~Kept() { effect.setParameter(index, value); }
  Kept(const Kept&) = delete;
  Kept& operator=(const Kept&) = delete;

  const float value;

 private:
  Effect& effect;
  int index;
};

}  // namespace

std::optional<float> findDisplayed(Effect& effect, int index, const std::string& typed) {
  const Kept kept(effect, index);
  return Search(effect, index, typed).find(kept.value);
}

bool showsFor(Effect& effect, int index, float value, const std::string& typed) {
  const Kept kept(effect, index);
  return Wanted(typed).isNearlyShown(shownAt(effect, index, value));
}

std::string shownText(Effect& effect, int index) {
  return Shown{effect.text(effGetParamDisplay, index), effect.text(effGetParamLabel, index)}
      .withUnit();
}
