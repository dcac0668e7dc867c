// An effect's parameters and presets, as texts for the person.
#include "host/state/description.h"

#include <algorithm>
#include <vector>

#include "host/base/text.h"
#include "host/state/effectadapter.h"
#include "host/state/effectstate.h"

namespace {

constexpr int kMostValues = 8;  // parameters in one line

std::string valueText(Effect& effect, int index) {
  const std::string display = effect.text(effGetParamDisplay, index);
  const std::string label = effect.text(effGetParamLabel, index);
  return label.empty() ? display : display + " " + label;
}

std::string propertiesText(Effect& effect, int index) {
  std::string text = effect.dispatch(effCanBeAutomated, index) != 0 ? "automatable" : "";
  VstParameterProperties properties{};
  if (effect.dispatch(effGetParameterProperties, index, 0, &properties) == 0) return text;
  const auto add = [&](const std::string& more) { text += (text.empty() ? "" : ", ") + more; };
  if ((properties.flags & kVstParameterIsSwitch) != 0) add("switch");
  if ((properties.flags & kVstParameterUsesFloatStep) != 0) {
    add(formatted("steps %g, %g, %g", static_cast<double>(properties.smallStepFloat),
                  static_cast<double>(properties.stepFloat),
                  static_cast<double>(properties.largeStepFloat)));
  }
  if ((properties.flags & kVstParameterUsesIntegerMinMax) != 0) {
    add(formatted("%d to %d", properties.minInteger, properties.maxInteger));
  }
  return text;
}

std::size_t longest(const std::vector<std::string>& texts) {
  std::size_t length = 0;
  for (const std::string& text : texts) length = std::max(length, text.size());
  return length;
}

}  // namespace

std::string describeParameters(Effect& effect) {
  std::vector<std::string> names;
  std::vector<std::string> values;
  for (int index = 0; index < effect.parameterCount(); ++index) {
    names.push_back(effect.text(effGetParamName, index));
    values.push_back(valueText(effect, index));
  }
  if (names.empty()) return "no parameters\n";
  const int nameWidth = static_cast<int>(longest(names));
  const int valueWidth = static_cast<int>(longest(values));
  std::string text;
  for (int index = 0; index < effect.parameterCount(); ++index) {
    const auto slot = static_cast<std::size_t>(index);
    text +=
        formatted("%3d  %-*s  %8.6f  %-*s  ", index, nameWidth, names[slot].c_str(),
                  static_cast<double>(effect.parameter(index)), valueWidth, values[slot].c_str());
    text += propertiesText(effect, index);
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
            valueText(effect, index);
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
