// Puts an effect into the state that the command line asks for.
#include "host/state/effectstate.h"

#include "host/base/failure.h"
#include "host/state/automationfile.h"
#include "host/state/effectadapter.h"
#include "host/state/fxpresets.h"
#include "host/state/namelookup.h"
#include "host/state/presetfilenames.h"

namespace {

int indexOf(Effect& effect, const std::string& parameter) {
  std::vector<std::string> names;
  names.reserve(static_cast<std::size_t>(effect.parameterCount()));
  for (int index = 0; index < effect.parameterCount(); ++index) {
    names.push_back(effect.text(effGetParamName, index));
  }
  if (names.empty()) throw Failure("--set: " + effect.plugin() + " has no parameters");
  return findParameter(names, parameter);
}

// An effect that is switched on with a value does not have to move there.
void setBeginning(Effect& effect, const AutomationLane& lane) {
  for (const AutomationPoint& point : lane.points) {
    if (point.seconds == 0.0) effect.setParameter(lane.parameter, point.value);
  }
}

// Either kind: the one in the place of the other is told by what it holds.
bool isFx(const std::string& file) {
  return isFxPreset(file) || isFxBank(file);
}

}  // namespace

std::vector<std::string> applyState(Effect& effect, const StateArguments& arguments) {
  const auto adapter = adapterFor(effect);
  std::vector<std::string> notes;
  if (arguments.state) adapter->loadState(*arguments.state);
  if (arguments.bank && isFx(*arguments.bank)) {
    loadFxBank(effect, *adapter, *arguments.bank);
  } else if (arguments.bank) {
    notes = adapter->loadBank(*arguments.bank);
  }
  if (arguments.preset && isFx(*arguments.preset)) {
    loadFxPreset(effect, *adapter, *arguments.preset);
  } else if (arguments.preset) {
    adapter->choosePreset(*arguments.preset);
  }
  for (std::size_t index = 0; index < arguments.values.size(); ++index) {
    const auto value = arguments.values[index];
    if (value) adapter->setValue(static_cast<int>(index), *value);
  }
  for (const ParameterSetting& setting : arguments.settings) {
    const int index = indexOf(effect, setting.parameter);
    const std::string what = "--set " + setting.parameter;
    effect.setParameter(index, adapter->typedValue(index, what, setting.value));
  }
  if (arguments.automation) {
    for (const AutomationLane& lane : readAutomation(effect, *arguments.automation))
      setBeginning(effect, lane);
  }
  return notes;
}

std::optional<std::string> choosePresetForFile(Effect& effect, const StateArguments& arguments) {
  const auto adapter = adapterFor(effect);
  auto preset = adapter->presetForFiles(arguments);
  if (preset) adapter->choosePreset(*preset);
  return preset;
}

PresetNames presetsOf(Effect& effect) {
  const auto adapter = adapterFor(effect);
  return {adapter->presetNames(), adapter->currentPreset()};
}
