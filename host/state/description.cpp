// An effect's parameters and presets, as texts for the person.
#include "host/state/description.h"

#include <algorithm>
#include <vector>

#include "host/base/text.h"
#include "host/state/displayedvalue.h"
#include "host/state/effectadapter.h"
#include "host/state/effectstate.h"
#include "host/state/parameterfacts.h"

namespace {

constexpr int kMostValues = 8;  // parameters in one line

std::string propertiesText(const ParameterFacts& facts) {
  std::string text = facts.automatable ? "automatable" : "";
  const auto add = [&](const std::string& more) { text += (text.empty() ? "" : ", ") + more; };
  if (facts.isSwitch) add("switch");
  if (facts.steps) {
    add(formatted("steps %g, %g, %g", static_cast<double>(facts.steps->small),
                  static_cast<double>(facts.steps->usual),
                  static_cast<double>(facts.steps->large)));
  }
  if (facts.range) add(formatted("%d to %d", facts.range->least, facts.range->most));
  return text;
}

std::size_t longest(const std::vector<std::string>& texts) {
  std::size_t length = 0;
  for (const std::string& text : texts) length = std::max(length, text.size());
  return length;
}

}  // namespace

std::string describeParameters(Effect& effect) {
  std::vector<ParameterFacts> all;
  std::vector<std::string> names;
  std::vector<std::string> values;
  for (int index = 0; index < effect.parameterCount(); ++index) {
    all.push_back(factsOfParameter(effect, index));
    names.push_back(all.back().name);
    values.push_back(shownText(effect, index));
  }
  if (all.empty()) return "no parameters\n";
  const int nameWidth = static_cast<int>(longest(names));
  const int valueWidth = static_cast<int>(longest(values));
  std::string text;
  for (std::size_t index = 0; index < all.size(); ++index) {
    text += formatted("%3zu  %-*s  %8.6f  %-*s  ", index, nameWidth, names[index].c_str(),
                      static_cast<double>(all[index].value), valueWidth, values[index].c_str());
    text += propertiesText(all[index]);
    text.erase(text.find_last_not_of(' ') + 1);
    text += "\n";
  }
  return text;
}

std::string describePresets(Effect& effect) {
  const PresetNames presets = presetsOf(effect);
  if (presets.names.empty()) return "no presets\n";
  std::string text;
  for (std::size_t number = 0; number < presets.names.size(); ++number) {
    const bool current = static_cast<int>(number) == presets.current;
    text += formatted("%c%3d  ", current ? '*' : ' ', static_cast<int>(number)) +
            presets.names[number] + "\n";
  }
  return text;
}

std::string describeValues(Effect& effect) {
  std::string text;
  for (int index = 0; index < std::min(effect.parameterCount(), kMostValues); ++index) {
    text += (index == 0 ? "" : ", ") + effect.text(effGetParamName, index) + " " +
            shownText(effect, index);
  }
  if (effect.parameterCount() > kMostValues) text += ", ...";
  return text;
}

std::string describeCurrentPreset(Effect& effect) {
  if (effect.record().numPrograms == 0) return {};
  // The number alone: asking for all names may mean to switch programs, which is no
  // question any more.
  const int current = adapterFor(effect)->currentPreset();
  return formatted("preset %d \"%s\"", current, effect.text(effGetProgramName).c_str());
}
