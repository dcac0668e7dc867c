// Puts an effect into the state that the command line asks for.
#include "host/state/effectstate.h"

#include <algorithm>
#include <filesystem>
#include <optional>

#include "host/base/failure.h"
#include "host/base/text.h"
#include "host/base/wholefile.h"
#include "host/state/presetlookup.h"
#include "host/state/trelvanbank.h"
#include "host/state/values.h"

namespace {

constexpr const char* kPresetExtension = ".orv";

bool isPresetFile(const std::string& preset) {
  return sameLetters(std::filesystem::path(preset).extension().string(), kPresetExtension);
}

TrelvanBank bankOf(Effect& effect) {
  return {effect.chunk(), effect.record().uniqueID, effect.plugin()};
}

void giveBank(Effect& effect, const TrelvanBank& bank) {
  const auto chunk = bank.chunk();
  effect.setChunk(chunk);
  if (effect.chunk() != chunk) throw Failure(effect.plugin() + ": the effect did not take the presets it was given");
}

void loadState(Effect& effect, const std::string& file) {
  const auto bytes = readWholeFile(file);
  if (effect.isTrelvan()) TrelvanBank::checkState(bytes, effect.record().uniqueID, file);
  effect.setChunk(bytes);
}

void addNotes(TrelvanBank& bank, const std::string& file, std::vector<std::string>& notes) {
  for (const std::string& note : bank.takeNotes()) notes.push_back(formatted("%s: %s", file.c_str(), note.c_str()));
}

void loadTrelvanBank(Effect& effect, const std::string& file, std::vector<std::string>& notes) {
  TrelvanBank bank = bankOf(effect);
  bank.takeNotes();  // of what the effect held, nobody asked
  bank.loadBank(readWholeFile(file), file);
  addNotes(bank, file, notes);
  giveBank(effect, bank);
}

void loadTrelvanPreset(Effect& effect, const std::string& preset) {
  TrelvanBank bank = bankOf(effect);
  if (isPresetFile(preset)) {
    bank.loadPreset(readWholeFile(preset), preset);
  } else {
    bank.select(findPreset(effect.programNames(), preset));
  }
  giveBank(effect, bank);
}

void selectProgram(Effect& effect, const std::string& preset) {
  if (isPresetFile(preset)) throw Failure(preset + ": " + effect.plugin() + " takes no preset files of Trelvan");
  if (effect.record().numPrograms == 0) throw Failure(effect.plugin() + ": the effect has no presets");
  effect.selectProgram(findPreset(effect.programNames(), preset));
}

int findParameter(Effect& effect, const std::string& wanted) {
  std::vector<std::string> names;
  names.reserve(static_cast<std::size_t>(effect.parameterCount()));
  for (int index = 0; index < effect.parameterCount(); ++index) names.push_back(effect.text(effGetParamName, index));
  if (names.empty()) throw Failure("--set: " + effect.plugin() + " has no parameters");
  const auto found = [&](auto matches) { return std::find_if(names.begin(), names.end(), matches); };
  auto name = found([&](const std::string& other) { return other == wanted; });
  if (name == names.end()) name = found([&](const std::string& other) { return sameLetters(other, wanted); });
  if (name != names.end()) return static_cast<int>(name - names.begin());
  const auto number = readNumber(wanted);
  if (number && number->unit.empty()) {
    const auto index = static_cast<int>(number->number);
    if (number->number >= 0 && number->number < static_cast<double>(names.size()) && index == number->number)
      return index;
    throw Failure("--set: there is no parameter " + wanted + "; they are numbered 0 to " +
                  std::to_string(names.size() - 1));
  }
  throw Failure("--set: there is no parameter \"" + wanted + "\"" +
                (suggestion(names, wanted).empty() ? "; --list-params shows them" : suggestion(names, wanted)));
}

void setTrelvanParameter(Effect& effect, int index, const ParameterSetting& setting) {
  const std::string option = "--set " + setting.parameter;
  switch (index) {
    case 0:
    case 2:
      return effect.setParameter(index, parsePercent(option, setting.value));
    case 1:
      return effect.setParameter(index, parseBaseFrequency(option, setting.value));
    default:
      return effect.setParameter(index, parseSwitch(option, setting.value));
  }
}

void setAnyParameter(Effect& effect, const ParameterSetting& setting) {
  const int index = findParameter(effect, setting.parameter);
  if (effect.isTrelvan()) return setTrelvanParameter(effect, index, setting);
  if (const auto value = readGenericValue(setting.value)) return effect.setParameter(index, *value);
  std::string typed = setting.value;  // in the effect's own words, if it understands any
  if (effect.dispatch(effString2Parameter, index, 0, typed.data()) != 0) return;
  throw Failure("--set " + setting.parameter + ": \"" + setting.value +
                "\" is not 0 to 1, 0% to 100%, on or off, and the effect does not understand it either");
}

}  // namespace

std::vector<std::string> applyState(Effect& effect, const StateArguments& arguments) {
  std::vector<std::string> notes;
  if (arguments.state) loadState(effect, *arguments.state);
  if (arguments.bank) {
    if (!effect.isTrelvan()) throw Failure("--bank: " + effect.plugin() + " takes no bank files of Trelvan");
    loadTrelvanBank(effect, *arguments.bank, notes);
  }
  if (arguments.preset && effect.isTrelvan()) loadTrelvanPreset(effect, *arguments.preset);
  if (arguments.preset && !effect.isTrelvan()) selectProgram(effect, *arguments.preset);
  for (int index = 0; index < StateArguments::kTrelvanParameters; ++index) {
    const auto value = arguments.values[static_cast<std::size_t>(index)];
    if (!value) continue;
    if (!effect.isTrelvan()) {
      throw Failure(effect.plugin() + " is not Trelvan: its parameters are set with --set NAME=VALUE");
    }
    effect.setParameter(index, *value);
  }
  for (const ParameterSetting& setting : arguments.settings) setAnyParameter(effect, setting);
  return notes;
}

PresetNames presetsOf(Effect& effect) {
  PresetNames presets{effect.programNames(), 0};
  presets.current = effect.isTrelvan() ? bankOf(effect).current() : static_cast<int>(effect.dispatch(effGetProgram));
  return presets;
}
