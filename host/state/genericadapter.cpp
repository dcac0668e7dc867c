// Any effect's programs and parameters.
#include "host/state/genericadapter.h"

#include "host/base/failure.h"
#include "host/base/wholefile.h"
#include "host/state/namelookup.h"
#include "host/state/values.h"

void GenericAdapter::loadState(const std::string& file) {
  effect.setChunk(readWholeFile(file));
}

std::vector<std::string> GenericAdapter::loadBank(const std::string&) {
  throw Failure("--bank: " + effect.plugin() + " takes no bank files of Trelvan");
}

void GenericAdapter::choosePreset(const std::string& preset) {
  if (isPresetFile(preset)) {
    throw Failure(preset + ": " + effect.plugin() + " takes no preset files of Trelvan");
  }
  if (effect.record().numPrograms == 0) {
    throw Failure(effect.plugin() + ": the effect has no presets");
  }
  effect.selectProgram(findPreset(presetNames(), preset));
}

void GenericAdapter::setValue(int, float) {
  throw Failure(effect.plugin() + " is not Trelvan: its parameters are set with --set NAME=VALUE");
}

void GenericAdapter::setTyped(int index, const ParameterSetting& setting) {
  if (const auto value = readGenericValue(setting.value)) {
    return effect.setParameter(index, *value);
  }
  std::string typed = setting.value;  // in the effect's own words, if it understands any
  if (effect.dispatch(effString2Parameter, index, 0, typed.data()) != 0) return;
  throw Failure("--set " + setting.parameter + ": \"" + setting.value +
                "\" is not 0 to 1, 0% to 100%, on or off, and the effect does not understand it either");
}

std::vector<std::string> GenericAdapter::presetNames() {
  return effect.programNames();
}

int GenericAdapter::currentPreset() {
  return static_cast<int>(effect.dispatch(effGetProgram));
}
